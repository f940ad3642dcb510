#include "wiro/EmitterSet.h"

#include "wiro/GlobalConnectionLock.h"

namespace WIRO {

EmitterSet::~EmitterSet() {
    if (!m_listener.load(std::memory_order_acquire)) {
        return;
    }
    DOVA::ReadWriteLock::WriteGuard guard(GetGlobalConnectionLock());
    if (Listener* listener = m_listener.load(std::memory_order_relaxed)) {
        listener->m_promised = nullptr;
    }
}

// A promise without its listener stays where it is, and must not become another listener's: so a
// set has one listener for good.
bool EmitterSet::mayPromise(const Listener& listener) const {
    return m_thread == Thread() ? !listener.m_promised : m_listener == &listener;
}

void EmitterSet::promise(Listener& listener,
                         std::initializer_list<const detail::Promise*> promises) {
    const Thread thread = Thread::getCurrentThread();
    DOVA::ReadWriteLock::WriteGuard guard(GetGlobalConnectionLock());
    const bool isPromised = mayPromise(listener);
    if (isPromised) {
        m_thread = thread;
        m_listener.store(&listener, std::memory_order_release);
        listener.m_promised = this;
    }
    for (const detail::Promise* promise : promises) {
        EmitterBase& emitter = promise->emitterOf(*this);
        const auto place = static_cast<std::uintptr_t>(reinterpret_cast<char*>(&emitter) -
                                                       reinterpret_cast<char*>(this));
        if (isPromised && emitter.m_links.load(std::memory_order_relaxed).areNone() &&
            detail::Links::fits(promise, place)) {
            emitter.m_links.store(detail::Links(promise, place), std::memory_order_release);
        } else {
            promise->make(listener, emitter, thread);
        }
    }
}

}  // namespace WIRO
