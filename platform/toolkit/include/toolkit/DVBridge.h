#pragma once

#include "toolkit/Export.h"
#include "toolkit/StringID.h"

namespace DOVA {

/// A desktop module's hold on its native event system.
class DOVA_TOOLKIT_EXPORT DVBridge {
public:
    virtual ~DVBridge();
    /// Lets the native side go; called once, before the desktop module is terminated.
    virtual void shutDown() = 0;

    /// The bridge registered under `backend`, null if there is none. Main thread.
    static DVBridge* getBridge(StringID backend);
    /// Registers a bridge, not owned; null takes the entry out. Main thread.
    static void registerBridge(StringID backend, DVBridge* bridge);
};

}  // namespace DOVA
