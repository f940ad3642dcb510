#include "wiro/EmitterBase.h"

#include <algorithm>

#include "EmissionSlots.h"
#include "wiro/Connection.h"
#include "wiro/EmitterSet.h"
#include "wiro/GlobalConnectionLock.h"
#include "wiro/Payload.h"

namespace WIRO {

using detail::ConnectionList;
using detail::Links;

namespace {

/// The list without the connection: null for none.
Links without(const Connection* connection, const ConnectionList& list) {
    if (list.size == 2) {
        return Links(list.entries[list.entries[0] == connection ? 1 : 0]);
    }
    ConnectionList* fewer = detail::allocateList(list.size - 1);
    std::remove_copy(list.entries, list.entries + list.size, fewer->entries, connection);
    return Links(fewer);
}

}  // namespace

Payload::~Payload() = default;

EmitterBase::~EmitterBase() {
    const Links seen = m_links.load(std::memory_order_acquire);
    if (seen.areNone() || seen.arePromised()) {
        return;
    }
    detail::Retired retired;
    {
        DOVA::ReadWriteLock::WriteGuard guard(GetGlobalConnectionLock());
        // All at once: one by one would leave a list behind for each of them.
        const Links links = m_links.load(std::memory_order_acquire);
        replace(Links(), retired);
        detail::forEach(links, [&](Connection* connection) { connection->leave(retired); });
    }
    detail::waitForHandlers(retired.connections);
    detail::retire(retired);
}

std::size_t EmitterBase::numberOfConnections() const noexcept {
    const Links links = m_links.load(std::memory_order_acquire);
    if (links.kind() == Links::List) {
        const detail::Emission emission(*this);
        return emission.areSeveral() ? detail::ConnectionWalk(emission.pinned()).size()
                                     : (emission.only() ? 1 : 0);
    }
    if (links.arePromised()) {
        return setOf(links).m_listener.load(std::memory_order_acquire) ? 1 : 0;
    }
    return links.areNone() ? 0 : 1;
}

void EmitterBase::sendPacket(const Packet& packet, SendMode, bool firstOnly) {
    const detail::Emission emission(*this);
    if (!emission.areSeveral()) {
        if (Connection* only = emission.only()) {
            packet.payload().performDeliver(only);
        }
        return;
    }
    detail::ConnectionWalk walk(emission.pinned());
    while (Connection* connection = walk.next()) {
        packet.payload().performDeliver(connection);
        if (firstOnly) {
            return;
        }
    }
}

void EmitterBase::add(Connection* connection, detail::Retired& retired) {
    Links old = m_links.load(std::memory_order_relaxed);
    if (old.kind() == Links::BeingMade) {
        return;  // takes its place when it is open
    }
    if (old.arePromised()) {
        keepPromise();
        old = m_links.load(std::memory_order_relaxed);
    }
    if (old.areNone()) {
        replace(Links(connection), retired);
        return;
    }
    const unsigned size = old.kind() == Links::List ? old.list()->size : 1;
    ConnectionList* list = detail::allocateList(size + 1);
    Connection** place = list->entries;
    detail::forEach(old, [&](Connection* present) { *place++ = present; });
    *place = connection;
    replace(Links(list), retired);
}

void EmitterBase::remove(const Connection* connection, detail::Retired& retired) {
    const Links old = m_links.load(std::memory_order_relaxed);
    replace(old.kind() == Links::List ? without(connection, *old.list()) : Links(), retired);
}

void EmitterBase::replace(Links links, detail::Retired& retired) {
    const Links old = m_links.exchange(links, std::memory_order_acq_rel);
    if (old.kind() == Links::List) {
        retired.lists.push_back(old.list());
    }
}

const EmitterSet& EmitterBase::setOf(Links promised) const {
    return *reinterpret_cast<const EmitterSet*>(reinterpret_cast<const char*>(this) -
                                                promised.place());
}

// The promise stays in its place until the connection is open: whoever emits meanwhile on another
// thread waits for the lock, and then finds it.
void EmitterBase::keepPromise() const {
    DOVA::ReadWriteLock::WriteGuard guard(GetGlobalConnectionLock());
    const Links links = m_links.load(std::memory_order_acquire);
    if (links.kind() != Links::Promised) {
        return;
    }
    const EmitterSet& set = setOf(links);
    Links kept;
    if (Listener* listener = set.m_listener.load(std::memory_order_acquire)) {
        m_links.store(links.beingMade(), std::memory_order_relaxed);
        try {
            auto& self = const_cast<EmitterBase&>(*this);
            kept = Links(&links.promise()->make(*listener, self, set.m_thread));
        } catch (...) {
            m_links.store(links, std::memory_order_relaxed);
            throw;
        }
    }
    m_links.store(kept, std::memory_order_release);
}

}  // namespace WIRO
