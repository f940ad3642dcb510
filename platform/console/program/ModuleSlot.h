#pragma once

#include <filesystem>
#include <optional>
#include <vector>

#include "host/ribo/factory/RiboMethod.h"
#include "runtime/Module.h"

namespace DOVA::console {

/// Where the program has its module, which scripts may load and unload.
class ModuleSlot {
public:
    /// A module that goes online, once it is loaded, listens to pages.
    enum class Presence { Offline, Online };

    explicit ModuleSlot(Presence presence) : m_presence(presence) {}
    ModuleSlot(const ModuleSlot&) = delete;
    ModuleSlot& operator=(const ModuleSlot&) = delete;

    /// Loads and starts the module; an empty path means the one that belongs to this program.
    /// Throws runtime::StartError, and host::Error when one was loaded before: a module does not
    /// start twice in a process.
    void load(const std::filesystem::path& path);
    /// Ends the module; without one nothing happens.
    void unload();

    /// `loadModule([path])` and `unloadModule()` for scripts.
    std::vector<ribo::factory::RiboMethod> functions();

private:
    const Presence m_presence;
    std::optional<runtime::Module> m_module;
};

}  // namespace DOVA::console
