#pragma once

namespace WIRO {

class Connection;

namespace detail {

/// What a Subscription and its connection share; null once the connection is cut. Guarded by the
/// global connection lock.
struct Link {
    Connection* connection;
};

}  // namespace detail
}  // namespace WIRO
