#pragma once

#include "core/WebExport.h"

/// The module's entry points, which the host looks up by these names and calls on its main thread.
/// Each works once while the module is loaded: what is terminated cannot be initialised again.
///
/// The host may unload the module whenever no code of it runs, and load it again, which starts it
/// anew. Front objects may outlive it: they take every call and do nothing. When scripts hold
/// values of its classes at its termination, these keep it loaded until the last of them goes. They
/// must not outlive a module that is unloaded without termination.
extern "C" {

/// Makes the web backend available: the object service, the factory under the backend key "web",
/// and the script namespaces "dova" and "dova.web". Starts the desktop module first if there is a
/// display. Subscribes and prints nothing. Throws foundation::bad_alloc if there is no memory for
/// the namespaces; the rest is there then.
DOVA_WEB_EXPORT void initialize_dova2_web();
/// Takes away the script namespaces with what they list; JSON values that scripts hold stay. Shuts
/// the desktop bridge down if there was a display at start-up, destroys the object service with
/// every window connection, and ends the subscription of the root channel. Web objects and the
/// factory stay until the module is unloaded or the process ends.
DOVA_WEB_EXPORT void terminate_dova2_web();

/// The same two for the host's loader.
DOVA_WEB_EXPORT void KVInitialize_dova2_web();
DOVA_WEB_EXPORT void KVTerminate_dova2_web();
}
