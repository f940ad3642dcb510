#include "wiro/Subscription.h"

#include "EmissionSlots.h"
#include "Link.h"
#include "wiro/Connection.h"
#include "wiro/GlobalConnectionLock.h"

namespace WIRO {

Subscription::Subscription(Connection& connection) {
    DOVA::ReadWriteLock::WriteGuard guard(GetGlobalConnectionLock());
    if (!connection.m_link) {
        connection.m_link = std::make_shared<detail::Link>(detail::Link{&connection});
    }
    m_link = connection.m_link;
}

void Subscription::disconnect() {
    const std::shared_ptr<detail::Link> link = m_link;  // this may die with the callable
    if (!link) {
        return;
    }
    detail::Retired retired;
    {
        DOVA::ReadWriteLock::WriteGuard guard(GetGlobalConnectionLock());
        if (link->connection) {
            link->connection->unlink(retired);
        }
    }
    detail::waitForHandlers(retired.connections);
    detail::retire(retired);
}

bool Subscription::isConnected() const {
    DOVA::ReadWriteLock::ReadGuard guard(GetGlobalConnectionLock());
    return m_link && m_link->connection;
}

}  // namespace WIRO
