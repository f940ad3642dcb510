#pragma once

#include "wiro/Export.h"

namespace WIRO {

class Connection;
class EmitterSet;

/// The receiving end of connections. Its destruction cuts them all, as disconnectAll() does.
class DOVA_WIRO_EXPORT Listener {
public:
    Listener() = default;
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    /// Cuts every connection to this listener. Waits for a handler of it that runs on another
    /// thread: hold no lock that such a handler takes. A handler that runs on this thread goes on,
    /// and must not touch the listener after its destruction. A class whose handlers use its own
    /// members calls this first in its destructor.
    void disconnectAll();

protected:
    ~Listener();

private:
    friend class Connection;
    friend class EmitterSet;

    // Guarded by the global connection lock.
    Connection* m_connections = nullptr;
    EmitterSet* m_promised = nullptr;  // whose connections are promised to this listener
};

}  // namespace WIRO
