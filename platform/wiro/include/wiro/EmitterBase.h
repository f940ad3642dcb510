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

/// The sending end of connections, whatever they carry. Emissions on different threads do not
/// disturb each other.
class DOVA_WIRO_EXPORT EmitterBase {
public:
    EmitterBase() = default;
    EmitterBase(const EmitterBase&) = delete;
    EmitterBase& operator=(const EmitterBase&) = delete;
    /// Cuts every connection. A handler may do this to its own emitter: the emission under way then
    /// reaches nobody else. Waits for handlers on other threads, as Connection::disconnect does.
    /// REQUIRES: no other thread begins an emission meanwhile.
    ~EmitterBase();

    /// How many connections there are now; another thread may be changing that.
    std::size_t numberOfConnections() const noexcept {
        return m_count.load(std::memory_order_acquire);
    }

    /// Delivers the packet to the connections in the order in which they were made; with
    /// `firstOnly` to the first one alone. Leaves out connections that are made meanwhile, skips
    /// those that are cut meanwhile. An exception from a receiver ends the delivery and reaches the
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
