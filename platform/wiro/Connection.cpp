#include "wiro/Connection.h"

#include "EmissionSlots.h"
#include "Link.h"
#include "wiro/EmitterBase.h"
#include "wiro/GlobalConnectionLock.h"
#include "wiro/Listener.h"

namespace WIRO {

Connection::Connection(Listener* listener, EmitterBase* emitter)
    : m_emitter(emitter), m_listener(listener) {
    detail::Retired retired;
    emitter->add(this, retired);
    if (listener) {
        m_nextOfListener = listener->m_connections;
        if (m_nextOfListener) {
            m_nextOfListener->m_previousOfListener = this;
        }
        listener->m_connections = this;
    }
    detail::retireLists(retired);
}

Connection::~Connection() = default;

void Connection::open() {
    m_state.store(detail::hasBarrier() ? State::Open : State::OpenAfterFence,
                  std::memory_order_release);
}

bool Connection::deliversAfterFence() const {
    if (!isOpen()) {
        return false;
    }
    detail::fence();
    return isOpen();
}

void Connection::disconnect() {
    detail::Retired retired;
    {
        DOVA::ReadWriteLock::WriteGuard guard(GetGlobalConnectionLock());
        unlink(retired);
    }
    detail::waitForHandlers(retired.connections);
    detail::retire(retired);
}

void Connection::unlink(detail::Retired& retired) {
    if (m_emitter) {
        m_emitter->remove(this, retired);
        leave(retired);
    }
}

void Connection::leave(detail::Retired& retired) {
    m_state.store(State::Closed, std::memory_order_release);
    m_emitter = nullptr;
    unlinkFromListener();
    if (m_link) {
        m_link->connection = nullptr;  // its subscriptions have it now
        m_link = nullptr;
    }
    retired.connections.push_back(this);
}

void Connection::unlinkFromListener() {
    if (m_nextOfListener) {
        m_nextOfListener->m_previousOfListener = m_previousOfListener;
    }
    if (m_previousOfListener) {
        m_previousOfListener->m_nextOfListener = m_nextOfListener;
    } else if (m_listener) {
        m_listener->m_connections = m_nextOfListener;
    }
    m_nextOfListener = m_previousOfListener = nullptr;
}

}  // namespace WIRO
