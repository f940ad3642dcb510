#include "Host.h"

#include "host/Array.h"
#include "host/FunctionEvaluation.h"
#include "toolkit/ApplicationContext.h"
#include "toolkit/DVBridge.h"
#include "toolkit/StringID.h"

namespace DOVA::seam {

std::optional<bool> askHost(const char* function) {
    kaArray* result = nullptr;
    vnsvDiagnostic* diagnostic = vnsvFEVAL_NoThrow(function, 1, &result, 0, nullptr);
    const auto answer =
        diagnostic ? std::nullopt : std::optional<bool>(kaIsLogicalScalarTrue(result));
    kaDestroyArray(result);
    vnsvDiscardDiagnostic(diagnostic);
    return answer;
}

std::optional<std::string> applicationRoot() {
    const auto context = DVServices::ServiceHolder::instance().applicationContext();
    return context ? context->getRoot() : std::nullopt;
}

void shutDownBridge(const std::string& backend) {
    if (DVBridge* bridge = DVBridge::getBridge(StringID::setStringID(backend))) {
        bridge->shutDown();
    }
}

std::array<int, 3> channelsOf(Color color) {
    return {static_cast<int>(color.red()), static_cast<int>(color.green()),
            static_cast<int>(color.blue())};
}

Color opaqueWhite() {
    return Color::fromFractions(1.0, 1.0, 1.0, 1.0);
}

}  // namespace DOVA::seam
