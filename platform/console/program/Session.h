#pragma once

#include <functional>
#include <string>
#include <utility>

#include "Options.h"
#include "console/ScriptConsole.h"

namespace DOVA::console {

/// One console, and everybody who has something to run in it: the command line, the prompt and the
/// dialog.
class Session {
public:
    /// Where the errors of what a user entered are shown: a text with line breaks.
    using Show = std::function<void(const std::string& text)>;

    explicit Session(Show showError) : m_showError(std::move(showError)) {}

    ScriptConsole& console() { return m_console; }

    /// Runs the texts and the script of a command line. Gives false, with the error on standard
    /// error, at the first that fails. `input` is what standard input held, where it is the script.
    bool run(const Options& options, const std::string& input);

    /// Runs what a user entered. Throws ScriptExit.
    void enter(const std::string& text);

private:
    void runScript(const Options& options, const std::string& input);

    const Show m_showError;
    ScriptConsole m_console;
};

}  // namespace DOVA::console
