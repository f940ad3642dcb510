#pragma once

#include "HostNamespace.h"
#include "ModuleSlot.h"
#include "Options.h"
#include "Session.h"

namespace DOVA::console {

/// dova-host without a browser: runs what it is given, then perhaps a prompt.
class LocalProgram {
public:
    /// Throws runtime::StartError when the module cannot be loaded.
    explicit LocalProgram(const Options& options);

    /// Gives the exit code. Throws ScriptExit.
    int run();

private:
    void readLines();
    void runPrompt();

    const Options& m_options;
    ModuleSlot m_module{ModuleSlot::Presence::Offline};
    const HostNamespace m_namespace{m_module.functions()};
    Session m_session;
};

}  // namespace DOVA::console
