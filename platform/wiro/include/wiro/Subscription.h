#pragma once

#include <utility>

#include "wiro/Export.h"

namespace WIRO {

class Connection;
namespace detail {
struct Link;
}

/// Watches one connection and can cut it. A copy watches the same connection. The connection stays
/// when the last copy goes. A subscription may outlive both ends. Any thread, but each object on
/// one at a time; takes the global connection lock.
class DOVA_WIRO_EXPORT Subscription {
public:
    /// Watches nothing.
    Subscription() = default;
    /// REQUIRES: `connection` is not cut. Where another thread could cut it, the caller holds the
    /// global connection lock for writing.
    explicit Subscription(Connection& connection);
    Subscription(const Subscription& other);
    Subscription(Subscription&& other) noexcept : m_link(std::exchange(other.m_link, nullptr)) {}
    Subscription& operator=(Subscription other) noexcept;
    ~Subscription();

    /// Cuts the connection, with the rules of Connection::disconnect; one that is gone is ignored.
    void disconnect();
    /// False, too, for one that watches nothing.
    bool isConnected() const;

private:
    detail::Link* m_link = nullptr;
};

}  // namespace WIRO
