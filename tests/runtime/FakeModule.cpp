#include "FakeModule.h"

#include <memory>

#include "host/FunctionEvaluation.h"
#include "messaging/ConnectorMessageService.h"

#define EXPORTED __attribute__((visibility("default")))

namespace {

std::vector<std::string> s_events;
std::unique_ptr<tdom::messaging::ConnectorMessageService> s_messages;

bool askHost() {
    kaArray* answer = nullptr;
    vnsvDiscardDiagnostic(vnsvFEVAL_NoThrow("korvid.internal.environment.context.isKORVIDOnline", 1,
                                            &answer, 0, nullptr));
    const bool isOnline = kaIsLogicalScalarTrue(answer);
    kaDestroyArray(answer);
    return isOnline;
}

}  // namespace

extern "C" EXPORTED std::vector<std::string>* fakeModuleEvents() {
    return &s_events;
}

extern "C" EXPORTED void KVInitialize_dova2_web() {
    s_events.emplace_back("initialise");
}

extern "C" EXPORTED void KVTerminate_dova2_web() {
    s_events.emplace_back("terminate");
    s_messages.reset();
}

namespace DOVA::web {

class EXPORTED KorvidOnlineFlag {
public:
    static bool get();
};

bool KorvidOnlineFlag::get() {
    s_events.emplace_back(askHost() ? "online" : "offline");
    s_messages = std::make_unique<tdom::messaging::ConnectorMessageService>("fake");
    s_messages->subscribe(
        "/dova2/web", [](const std::string& text) { s_events.push_back("library heard " + text); });
    return true;
}

}  // namespace DOVA::web
