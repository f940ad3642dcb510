#include "Options.h"

#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

#include "runtime/HostCommandLine.h"

namespace DOVA::console {

namespace {

constexpr int s_badCommandLine = 2;

constexpr const char* s_footer =
    "\nWithout SCRIPT and -e, a terminal gets a prompt, and anything else on standard input is the "
    "script. SCRIPT - is standard input. The scripts are Lua 5.4; what follows SCRIPT is theirs, "
    "in the table arg.";

/// The script and its arguments are none that the parser knows.
class UsageWithScript : public CLI::Formatter {
    std::string make_usage(const CLI::App*, std::string name) const override {
        return "Usage: " + name + " [OPTIONS] [SCRIPT [ARGS...]]\n";
    }
};

int refuse(const std::string& sentence) {
    std::cerr << "dova-host: " + sentence + "\n";
    return s_badCommandLine;
}

/// Everything from the script's name on is the script's, options included.
std::optional<int> takeScript(std::vector<std::string> rest, Options& options) {
    const bool isNamed = !rest.empty() && rest[0] == "--";
    if (isNamed) {
        rest.erase(rest.begin());
    }
    if (rest.empty()) {
        return std::nullopt;
    }
    if (!isNamed && rest[0].size() > 1 && rest[0][0] == '-') {
        return refuse("there is no option " + rest[0]);
    }
    options.script = rest[0];
    options.arguments.assign(rest.begin() + 1, rest.end());
    return std::nullopt;
}

}  // namespace

std::optional<int> Options::parse(int argc, const char* const* argv, Options& options) {
    CLI::App app("Runs scripts with the host's classes, or a prompt to try them.", "dova-host");
    app.formatter(std::make_shared<UsageWithScript>());
    app.footer(s_footer);
    app.prefix_command();
    app.add_option("-e", options.texts, "Run this text first; may be given several times")
        ->type_name("TEXT")
        ->allow_extra_args(false);
    app.add_flag("-i", options.isInteractive, "Ask for more at a prompt afterwards");
    bool withoutModule = false;
    app.add_flag("--no-module", withoutModule, "Leave it to the script to load the module");
    auto* serve = app.add_flag("--serve", options.isServed,
                               "Run beside a dialog in a browser, whose address is printed");
    runtime::HostCommandLine commandLine(app);
    for (const char* name : {"--port", "--bind", "--allow-remote", "--host", "--origin",
                             "--token-file", "--theme", "--log-level"}) {
        app.get_option(name)->needs(serve);
    }
    if (const auto exitCode = commandLine.parse(argc, argv)) {
        return exitCode;
    }
    options.loadModule = !withoutModule;
    options.host = commandLine.options();
    return takeScript(app.remaining(), options);
}

}  // namespace DOVA::console
