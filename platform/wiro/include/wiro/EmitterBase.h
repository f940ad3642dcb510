#pragma once

#include <atomic>
#include <cstddef>

#include "wiro/Export.h"
#include "wiro/Links.h"
#include "wiro/Packet.h"

namespace WIRO {

class EmitterSet;
namespace detail {
class Emission;
struct Retired;
}  // namespace detail

/// The sending end of connections, whatever they carry: one pointer. Emissions on different threads
/// do not disturb each other.
class DOVA_WIRO_EXPORT EmitterBase {
public:
    EmitterBase() = default;
    EmitterBase(const EmitterBase&) = delete;
    EmitterBase& operator=(const EmitterBase&) = delete;
    /// Cuts every connection. A handler may do this to its own emitter: the emission under way then
    /// reaches nobody else. Waits for handlers on other threads, as Connection::disconnect does.
    /// REQUIRES: no other thread begins an emission meanwhile.
    ~EmitterBase();

    /// How many connections there are now, promised ones included; another thread may be changing
    /// that.
    std::size_t numberOfConnections() const noexcept;

    /// Delivers the packet to the connections in the order in which they were made; with
    /// `firstOnly` to the first one alone. Leaves out connections that are made meanwhile, skips
    /// those that are cut meanwhile. An exception from a receiver ends the delivery and reaches the
    /// caller.
    void sendPacket(const Packet& packet, SendMode mode, bool firstOnly);

private:
    friend class Connection;
    friend class EmitterSet;
    friend class detail::Emission;

    void add(Connection* connection, detail::Retired& retired);
    void remove(const Connection* connection, detail::Retired& retired);
    void replace(detail::Links links, detail::Retired& retired);
    void keepPromise() const;
    const EmitterSet& setOf(detail::Links promised) const;

    mutable std::atomic<detail::Links> m_links{};  // a list is replaced, never changed
};

}  // namespace WIRO
