#include "toolkit/DesktopModule.h"

#include "toolkit/DVBridge.h"

namespace {

/// There is no native event system here, so there is nothing to let go.
class EmbeddedDesktopBridge : public DOVA::DVBridge {
public:
    void shutDown() override {}
};

}  // namespace

void initialize_dova2_qt() {
    // Never destroyed: a module may be terminated while the process ends.
    static auto* bridge = new EmbeddedDesktopBridge;
    DOVA::DVBridge::registerBridge(DOVA::StringID::setStringID("qt"), bridge);
}

void terminate_dova2_qt() {
    DOVA::DVBridge::registerBridge(DOVA::StringID::setStringID("qt"), nullptr);
}
