#include "Session.h"

#include <iostream>

#include "host/Console.h"

namespace DOVA::console {

namespace {

std::string described(const ScriptError& error) {
    std::string text = error.what() + std::string("\n");
    return error.traceback().empty() ? text : text + error.traceback() + "\n";
}

}  // namespace

bool Session::run(const Options& options, const std::string& input) {
    m_console.setArguments(options.script.value_or("dova-host"), options.arguments);
    try {
        for (const std::string& text : options.texts) {
            m_console.run(text, "(command line)");
        }
        runScript(options, input);
        return true;
    } catch (const ScriptError& error) {
        std::cerr << "dova-host: " + described(error);
        return false;
    }
}

void Session::runScript(const Options& options, const std::string& input) {
    if (options.script && *options.script != "-") {
        m_console.runFile(*options.script);
    } else if (!input.empty()) {
        m_console.runScript(input, "stdin");
    }
}

void Session::enter(const std::string& text) {
    try {
        m_console.enter(text);
    } catch (const ScriptError& error) {
        host::endLine();
        m_showError(described(error));
    }
}

}  // namespace DOVA::console
