#include "ModuleSlot.h"

#include <string>

#include "host/Error.h"
#include "host/Utf8.h"
#include "host/ribo/factory/Adapters.h"

namespace DOVA::console {

using ribo::factory::makeMethod;
using ribo::factory::MethodAttributes;

void ModuleSlot::load(const std::filesystem::path& path) {
    if (m_module) {
        throw host::Error("console:ModuleLoaded", "the module was loaded before; it starts once");
    }
    m_module.emplace(path);
    m_module->initialise();
    if (m_presence == Presence::Online) {
        m_module->goOnline();
    }
}

void ModuleSlot::unload() {
    if (m_module) {
        m_module->terminate();
    }
}

std::vector<ribo::factory::RiboMethod> ModuleSlot::functions() {
    constexpr MethodAttributes isStatic{true, false};
    ribo::factory::detail::initStringDataTypes();
    return {makeMethod("loadModule", isStatic, [this] { load({}); }),
            makeMethod("loadModule", isStatic,
                       [this](const std::u16string& path) { load(host::toUtf8(path)); }),
            makeMethod("unloadModule", isStatic, [this] { unload(); })};
}

}  // namespace DOVA::console
