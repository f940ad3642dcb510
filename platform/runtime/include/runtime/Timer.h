#pragma once

#include <memory>
#include <utility>

#include "runtime/Export.h"

namespace DOVA::runtime {

/// Watches one later call and can cancel it. A copy watches the same call. The call stays when the
/// last copy goes. A timer may outlive the host. Main thread.
class DOVA_RUNTIME_EXPORT Timer {
public:
    struct Call;

    /// Watches nothing.
    Timer() = default;
    explicit Timer(std::weak_ptr<Call> call) : m_call(std::move(call)) {}

    /// Takes the call back; its callable is destroyed before this returns. Does nothing when the
    /// call has begun, is over or was cancelled before.
    void cancel();
    /// Whether the call is still to come.
    bool isPending() const;

private:
    std::weak_ptr<Call> m_call;
};

}  // namespace DOVA::runtime
