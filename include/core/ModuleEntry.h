#pragma once

#include "core/WebExport.h"

/// The module's entry points, looked up by these names. Called by the host on its main thread. Each
/// runs once as long as the module is loaded: there is no way back from terminated to initialised.
///
/// The host may unload the module at any time when no code of it runs, and load it again, which
/// starts it anew. Front objects may outlive it: they take every call and do nothing. Values of its
/// classes that scripts hold when it is terminated keep it loaded until the last of them goes; they
/// must not outlive a module that is unloaded without being terminated.
extern "C" {

/// Makes the web backend available: object service, factory under the backend key "web", and the
/// script namespaces "dova" and "dova.web". Starts the desktop module first if there is a display.
/// Subscribes nothing yet, prints nothing. Throws foundation::bad_alloc if there is no memory for
/// the namespaces; the rest is there then.
DOVA_WEB_EXPORT void initialize_dova2_web();
/// Takes the script namespaces away, with what they list; JSON values that scripts hold stay.
/// Shuts the desktop bridge down if there was a display at start-up, destroys the object service
/// with every window connection, and ends the subscription of the root channel. Web objects and the
/// factory stay until the module is unloaded, or the process ends.
DOVA_WEB_EXPORT void terminate_dova2_web();

/// The same two for the host's loader.
DOVA_WEB_EXPORT void KVInitialize_dova2_web();
DOVA_WEB_EXPORT void KVTerminate_dova2_web();
}
