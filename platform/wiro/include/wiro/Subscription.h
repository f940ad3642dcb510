#pragma once

#include <memory>

#include "wiro/Export.h"

namespace WIRO {

class Connection;
namespace detail {
struct Link;
}

/// Watches one connection and can cut it. A copy watches the same connection; letting the last one
/// go leaves the connection in place. Outlives both ends safely.
class DOVA_WIRO_EXPORT Subscription {
public:
    /// Watches nothing.
    Subscription() = default;
    /// REQUIRES: `connection` is not cut yet, or the global connection lock is held.
    explicit Subscription(Connection& connection);

    /// Cuts the connection, with the rules of Connection::disconnect.
    void disconnect();
    bool isConnected() const;

private:
    std::shared_ptr<detail::Link> m_link;
};

}  // namespace WIRO
