#include "core/ModuleEntry.h"

#include <memory>
#include <utility>

#include "../scripting/ScriptNamespaces.h"
#include "../seam/Host.h"
#include "BaseConnection.h"
#include "ModuleEnd.h"
#include "core/WebFactory2.h"
#include "core/WebObject2.h"
#include "core/WebObjectService2.h"
#include "host/Display.h"
#include "toolkit/DVFactory2.h"
#include "toolkit/DesktopModule.h"
#include "toolkit/StringID.h"

using namespace DOVA;

namespace {

bool s_initialised = false;
bool s_terminated = false;
bool s_hasDisplay = false;
bool s_ended = false;
DVFactory2* s_toolkitFactory = nullptr;

void startDesktopModule() {
    s_hasDisplay = svGraphicsHasDisplay();
    if (s_hasDisplay) {
        initialize_dova2_qt();
    }
}

void stopDesktopModule() {
    if (!s_hasDisplay) {
        return;
    }
    seam::shutDownBridge("qt");
    terminate_dova2_qt();
}

}  // namespace

// The desktop module is left as it is: only the host knows whether it is still there.
void DOVA::endModule() noexcept {
    if (std::exchange(s_ended, true)) {
        return;
    }
    if (s_initialised && !s_terminated) {
        detachScriptNamespaces();
    }
    WebObjectService2::install(nullptr);
    BaseConnection::releaseInstance();
    destroyWebObjects();
    delete std::exchange(WebFactory2::s_factory, nullptr);
    delete std::exchange(s_toolkitFactory, nullptr);
}

void initialize_dova2_web() {
    if (s_initialised) {
        return;
    }
    s_initialised = true;
    startDesktopModule();
    WebObjectService2::install(std::make_unique<WebObjectService2>());
    // Kept until the module's end, like the web factory bound to it: front objects ask for their
    // factory whenever they die.
    s_toolkitFactory = new DVFactory2(nullptr);
    WebFactory2::createFactory(s_toolkitFactory);
    DVFactory2::registerFactory(StringID::setStringID("web"), s_toolkitFactory);
    addScriptNamespaces();
}

void terminate_dova2_web() {
    if (s_terminated) {
        return;
    }
    s_terminated = true;
    detachScriptNamespaces();
    stopDesktopModule();
    WebObjectService2::install(nullptr);
    BaseConnection::releaseInstance();
}

void KVInitialize_dova2_web() {
    initialize_dova2_web();
}

void KVTerminate_dova2_web() {
    terminate_dova2_web();
}
