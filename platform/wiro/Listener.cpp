#include "wiro/Listener.h"

#include "EmissionSlots.h"
#include "wiro/Connection.h"
#include "wiro/EmitterSet.h"
#include "wiro/GlobalConnectionLock.h"

namespace WIRO {

Listener::~Listener() {
    disconnectAll();
}

void Listener::disconnectAll() {
    detail::Retired retired;
    {
        DOVA::ReadWriteLock::WriteGuard guard(GetGlobalConnectionLock());
        if (m_promised) {
            m_promised->m_listener.store(nullptr, std::memory_order_release);
            m_promised = nullptr;
        }
        while (m_connections) {
            m_connections->unlink(retired);
        }
    }
    // By listener and not by connection: the other end may have cut one of them just before, and
    // its handler may still run.
    detail::waitForHandlers(this);
    detail::retire(retired);
}

}  // namespace WIRO
