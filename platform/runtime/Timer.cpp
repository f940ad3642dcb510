#include "runtime/Timer.h"

#include <utility>

#include "TimerCall.h"

namespace DOVA::runtime {

void Timer::cancel() {
    if (const auto call = m_call.lock()) {
        const auto dropped = std::exchange(call->callable, nullptr);
        call->wait.cancel();
    }
}

bool Timer::isPending() const {
    const auto call = m_call.lock();
    return call && call->callable;
}

}  // namespace DOVA::runtime
