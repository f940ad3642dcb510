#pragma once

namespace WIRO {

class Connection;

namespace detail {

/// What a connection and its subscriptions share, while there are any. Guarded by the global
/// connection lock.
struct Link {
    Connection* connection;  // null once it is cut
    unsigned subscriptions;
};

}  // namespace detail
}  // namespace WIRO
