#pragma once

#include "wiro/Export.h"

namespace WIRO {

class Connection;

/// The receiving end of connections: whoever derives from it is reached by no emitter any more once
/// it is destroyed.
class DOVA_WIRO_EXPORT Listener {
public:
    Listener() = default;
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    /// Cuts every connection to this listener. A handler of it that runs on another thread is
    /// waited for (the caller must hold no lock that such a handler takes); one that runs on this
    /// thread goes on and must not touch the listener after it was destroyed. A class whose
    /// handlers use its own members calls this first in its destructor.
    void disconnectAll();

protected:
    ~Listener();

private:
    friend class Connection;

    Connection* m_connections = nullptr;  // guarded by the global connection lock
};

}  // namespace WIRO
