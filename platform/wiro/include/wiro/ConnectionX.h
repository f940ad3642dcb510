#pragma once

#include "wiro/Connection.h"

namespace WIRO {

/// A connection with its call. An emitter of the same result and argument types delivers through
/// it; both ends of a signal agree on this type and on nothing else.
template <class R, class... Args>
class ConnectionX : public Connection {
public:
    using Connection::Connection;

    virtual R send(Args... args) = 0;
};

}  // namespace WIRO
