#include "wiro/EmitterBase.h"

#include <algorithm>

#include "EmissionSlots.h"
#include "wiro/Connection.h"
#include "wiro/GlobalConnectionLock.h"
#include "wiro/Payload.h"

namespace WIRO {

Payload::~Payload() = default;

EmitterBase::~EmitterBase() {
    if (!m_list.load(std::memory_order_acquire)) {
        return;
    }
    detail::Retired retired;
    {
        DOVA::ReadWriteLock::WriteGuard guard(GetGlobalConnectionLock());
        // All at once: one by one would leave a list behind for each of them.
        if (const detail::ConnectionList* list = m_list.load(std::memory_order_acquire)) {
            replaceList(nullptr, retired);
            std::for_each(list->entries, list->entries + list->size,
                          [&](Connection* connection) { connection->leave(retired); });
        }
    }
    detail::waitForHandlers(retired.connections);
    detail::retire(retired);
}

void EmitterBase::sendPacket(const Packet& packet, SendMode, bool firstOnly) {
    detail::Emission emission(*this);
    while (Connection* connection = emission.next()) {
        packet.payload().performDeliver(connection);
        if (firstOnly) {
            return;
        }
    }
}

void EmitterBase::add(Connection* connection, detail::Retired& retired) {
    const detail::ConnectionList* old = m_list.load(std::memory_order_relaxed);
    const unsigned size = old ? old->size : 0;
    detail::ConnectionList* list = detail::allocateList(size + 1);
    if (old) {
        std::copy(old->entries, old->entries + size, list->entries);
    }
    list->entries[size] = connection;
    replaceList(list, retired);
}

void EmitterBase::remove(const Connection* connection, detail::Retired& retired) {
    const detail::ConnectionList* old = m_list.load(std::memory_order_relaxed);
    if (old->size == 1) {
        replaceList(nullptr, retired);
        return;
    }
    detail::ConnectionList* list = detail::allocateList(old->size - 1);
    std::remove_copy(old->entries, old->entries + old->size, list->entries, connection);
    replaceList(list, retired);
}

void EmitterBase::replaceList(const detail::ConnectionList* list, detail::Retired& retired) {
    const detail::ConnectionList* old = m_list.load(std::memory_order_relaxed);
    m_list.store(list, std::memory_order_release);
    m_count.store(list ? list->size : 0, std::memory_order_release);
    if (old) {
        retired.lists.push_back(old);
    }
}

}  // namespace WIRO
