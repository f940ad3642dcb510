#include "wiro/Subscription.h"

#include "EmissionSlots.h"
#include "Link.h"
#include "wiro/Connection.h"
#include "wiro/GlobalConnectionLock.h"

namespace WIRO {

Subscription::Subscription(Connection& connection) {
    DOVA::ReadWriteLock::WriteGuard guard(GetGlobalConnectionLock());
    if (!connection.m_link) {
        connection.m_link = new detail::Link{&connection, 0};
    }
    m_link = connection.m_link;
    ++m_link->subscriptions;
}

Subscription::Subscription(const Subscription& other) : m_link(other.m_link) {
    if (m_link) {
        DOVA::ReadWriteLock::WriteGuard guard(GetGlobalConnectionLock());
        ++m_link->subscriptions;
    }
}

Subscription& Subscription::operator=(Subscription other) noexcept {
    std::swap(m_link, other.m_link);
    return *this;
}

Subscription::~Subscription() {
    if (!m_link) {
        return;
    }
    DOVA::ReadWriteLock::WriteGuard guard(GetGlobalConnectionLock());
    if (--m_link->subscriptions > 0) {
        return;
    }
    if (m_link->connection) {
        m_link->connection->m_link = nullptr;
    }
    delete m_link;
}

void Subscription::disconnect() {
    if (!m_link) {
        return;
    }
    detail::Retired retired;
    {
        DOVA::ReadWriteLock::WriteGuard guard(GetGlobalConnectionLock());
        if (m_link->connection) {
            m_link->connection->unlink(retired);
        }
    }
    // From here on this may be gone: it may belong to the callable.
    detail::waitForHandlers(retired.connections);
    detail::retire(retired);
}

bool Subscription::isConnected() const {
    DOVA::ReadWriteLock::ReadGuard guard(GetGlobalConnectionLock());
    return m_link && m_link->connection;
}

}  // namespace WIRO
