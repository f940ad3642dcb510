#pragma once

#include <atomic>
#include <cstddef>

#include "wiro/Export.h"
#include "wiro/Packet.h"

namespace WIRO {

class Connection;
namespace detail {
class Emission;
struct ConnectionList;
struct Retired;
}  // namespace detail

/// The sending end of connections, whatever they carry. An emitter may be destroyed at any time, by
/// its own handlers too: the emission under way then reaches nobody else. Emissions on different
/// threads do not disturb each other.
class DOVA_WIRO_EXPORT EmitterBase {
public:
    EmitterBase() = default;
    EmitterBase(const EmitterBase&) = delete;
    EmitterBase& operator=(const EmitterBase&) = delete;
    ~EmitterBase();

    /// As of now; another thread may be connecting or cutting meanwhile.
    std::size_t numberOfConnections() const noexcept {
        return m_count.load(std::memory_order_acquire);
    }

    /// Delivers the packet to the connections in the order in which they were made; to the first
    /// one alone with `firstOnly`. Connections made meanwhile are left out, connections cut
    /// meanwhile are skipped. An exception from a receiver ends the delivery and reaches the
    /// caller.
    void sendPacket(const Packet& packet, SendMode mode, bool firstOnly);

private:
    friend class Connection;
    friend class detail::Emission;

    void add(Connection* connection, detail::Retired& retired);
    void remove(const Connection* connection, detail::Retired& retired);
    void replaceList(const detail::ConnectionList* list, detail::Retired& retired);

    std::atomic<const detail::ConnectionList*> m_list{nullptr};  // replaced, never changed
    std::atomic<unsigned> m_count{0};  // of the list, so that counting need not pin it
};

}  // namespace WIRO
