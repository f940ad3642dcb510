#pragma once

#include <atomic>
#include <memory>
#include <string>

#include "ConsoleDialog.h"
#include "HostNamespace.h"
#include "ModuleSlot.h"
#include "Options.h"
#include "OutputLines.h"
#include "Prompt.h"
#include "Session.h"
#include "runtime/Host.h"

namespace DOVA::console {

/// dova-host beside a browser: the command line's scripts, the prompt (on a terminal) and the
/// dialog "Script console" run in one main loop and share one console.
class ServedProgram {
public:
    /// Throws runtime::StartError.
    explicit ServedProgram(const Options& options);

    /// Prints the address and serves until the end. Gives the exit code.
    int run();

private:
    void runScripts(const std::string& input);
    void startPrompt();
    void enterFromPrompt(const std::string* entry);
    void enterFromDialog(const std::string& line);
    void openDialog();
    void showOutputSoon();
    /// Runs what may ask for the end of the program.
    template <class Call>
    void attempt(const Call& call);

    const Options m_options;
    runtime::Host m_host;
    ModuleSlot m_module{ModuleSlot::Presence::Online};
    const HostNamespace m_namespace;
    OutputLines m_output{[this] { showOutputSoon(); }};
    Session m_session;
    std::unique_ptr<Prompt> m_prompt;
    std::unique_ptr<ConsoleDialog> m_dialog;
    std::atomic<bool> m_isShowingSoon{false};
};

}  // namespace DOVA::console
