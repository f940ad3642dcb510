#pragma once

#include "toolkit/Export.h"
#include "toolkit/StringID.h"

namespace DOVA {

/// The native event system behind a desktop module.
class DOVA_TOOLKIT_EXPORT DVBridge {
public:
    virtual ~DVBridge();
    /// Ends the native side. Called once, before the desktop module is terminated.
    virtual void shutDown() = 0;

    /// The bridge registered under `backend`, null if there is none. Main thread.
    static DVBridge* getBridge(StringID backend);
    /// Registers a bridge, not owned; null takes the entry out. Main thread.
    static void registerBridge(StringID backend, DVBridge* bridge);
};

}  // namespace DOVA
