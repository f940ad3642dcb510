#include "Settings.h"

#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <map>

#include "OptionRules.h"
#include "Visitors.h"
#include "gateway/InstalledPage.h"

namespace DOVA::serve {

namespace {

constexpr int s_badCommandLine = 2;
constexpr const char* s_visitor = "{visitor}";

const std::vector<std::string> s_levelNames(std::begin(log::levelNames), std::end(log::levelNames));

std::string filledIn(std::string text, const std::string& visitor) {
    const std::size_t length = std::char_traits<char>::length(s_visitor);
    for (std::size_t at = text.find(s_visitor); at != std::string::npos;
         at = text.find(s_visitor, at + visitor.size())) {
        text.replace(at, length, visitor);
    }
    return text;
}

std::string oneLine(const std::string& sentence) {
    std::string line = "dova-serve: " + sentence;
    std::replace(line.begin(), line.end(), '\n', ' ');
    return line + "\n";
}

/// The texts of options that are no texts here.
struct Texts {
    std::vector<std::string> environment;
    std::string logLevel = "info";
    double idle = 0, start = 10, stop = 5, drain = 0;
};

CLI::AsNumberWithUnit seconds() {
    return CLI::AsNumberWithUnit(
        std::map<std::string, double>{
            {"ms", 0.001}, {"s", 1}, {"min", 60}, {"h", 3600}, {"d", 86400}},
        CLI::AsNumberWithUnit::CASE_SENSITIVE, "TIME");
}

void addPrograms(CLI::App& app, Settings& settings, Texts& texts) {
    app.add_option("--program", settings.command.arguments,
                   "The program and its arguments, where they do not stand behind the options")
        ->type_name("PROGRAM [ARGUMENT...]");
    app.add_option("--folder", settings.command.folder, "Where the programs work")
        ->type_name("FOLDER");
    app.add_option("--environment", texts.environment,
                   "A variable of the programs' environment; may be repeated")
        ->type_name("NAME=VALUE")
        ->allow_extra_args(false);
    app.add_option("--user", settings.command.user, "Whose rights the programs get")
        ->type_name("NAME");
    app.add_option("--programs", settings.programs, "So many programs at a time")
        ->check(CLI::PositiveNumber)
        ->capture_default_str();
    app.add_option("--idle", texts.idle, "End a program that has had no page for so long; 0: never")
        ->transform(seconds())
        ->capture_default_str();
    app.add_option("--start-time", texts.start, "A program must be there by then")
        ->transform(seconds())
        ->capture_default_str();
    app.add_option("--stop-time", texts.stop, "A program that is asked to end must have by then")
        ->transform(seconds())
        ->capture_default_str();
}

void addService(CLI::App& app, Settings& settings, Texts& texts) {
    app.add_option("--drain-time", texts.drain,
                   "Asked to end, let the visitors who are there go on for so long")
        ->transform(seconds())
        ->capture_default_str();
    app.add_option("--status-port", settings.statusPort,
                   "Answer /healthz, /readyz and /metrics on this port of the loopback interface")
        ->check(CLI::Range(0, 65535));
}

void addLimits(CLI::App& app, Limits& limits) {
    app.add_option("--memory", limits.memoryBytes, "The most memory of a program, as 512MB")
        ->transform(CLI::AsSizeValue(false));
    app.add_option("--processes", limits.processes, "The most processes and threads of their user");
    app.add_option("--files", limits.files, "The most open files of a program");
    app.add_option("--cpu", limits.cpuSeconds, "The most processor time of a program, in seconds");
}

void addVisitors(CLI::App& app, Settings& settings) {
    app.add_option("--visitor", settings.visitors,
                   "The name of a visitor, with a new token at every start; may be repeated")
        ->type_name("NAME")
        ->allow_extra_args(false);
    app.add_option("--visitors", settings.visitorFile, "A file with a name and a token a line")
        ->type_name("FILE");
}

void addGateway(CLI::App& app, gateway::GatewayOptions& options, Settings& settings) {
    app.add_option("--port", options.port, "TCP port to serve on; 0 takes any free one")
        ->check(CLI::Range(0, 65535))
        ->capture_default_str();
    app.add_option("--bind", options.bindAddress, "Numeric IP address to serve on")
        ->capture_default_str();
    app.add_flag("--allow-remote", options.allowNonLoopback,
                 "Allow an address that other machines can reach (nothing is encrypted)");
    app.add_option("--public-url", options.publicUrl,
                   "The address under which a proxy makes the service known, ending in /")
        ->type_name("URL");
    app.add_option("--host", options.extraHosts,
                   "A name under which browsers reach the service; may be repeated")
        ->type_name("NAME[:PORT]")
        ->allow_extra_args(false);
    app.add_option("--origin", options.extraOrigins,
                   "The address of a proxy that does not pass its name on; may be repeated")
        ->type_name("URL")
        ->allow_extra_args(false);
    app.add_option("--theme", options.theme, "A style sheet that the page loads after its own")
        ->type_name("FILE");
    app.add_option("--page", options.pageFolder, "The folder of the page")->type_name("FOLDER");
    app.add_option("--application-root", options.applicationRoot, "The folder of programs' images")
        ->type_name("FOLDER");
    app.add_option("--connections", options.limits.connections, "So many pages at a time")
        ->check(CLI::PositiveNumber)
        ->capture_default_str();
    app.add_option("--socket-folder", settings.socketFolder, "Where the programs find the service")
        ->type_name("FOLDER");
}

/// DOVA_SERVE_PUBLIC_URL for --public-url.
std::string variableOf(const std::string& option) {
    std::string name = "DOVA_SERVE_" + option;
    std::transform(name.begin(), name.end(), name.begin(), [](char letter) {
        return letter == '-' ? '_' : static_cast<char>(std::toupper(letter));
    });
    return name;
}

/// The library's own way would let a file overrule the environment: so what that says stands
/// before what the command line says, and of two the last one counts.
std::vector<std::string> withEnvironment(CLI::App& app, int argc, const char* const* argv) {
    std::vector<std::string> arguments(argv + 1, argv + argc);
    for (CLI::Option* const option : app.get_options()) {
        const std::string name = option->get_lnames().empty() ? "" : option->get_lnames().front();
        const char* const value = name.empty() ? nullptr : std::getenv(variableOf(name).c_str());
        if (value) {
            arguments.insert(arguments.begin(), "--" + name + "=" + value);
        }
        if (option->get_items_expected_max() <= 1) {
            option->take_last();
        }
    }
    std::reverse(arguments.begin(), arguments.end());  // as the library takes them
    return arguments;
}

std::chrono::milliseconds milliseconds(double seconds) {
    return std::chrono::milliseconds(static_cast<std::int64_t>(seconds * 1000));
}

void take(Settings& settings, const Texts& texts) {
    for (const std::string& variable : texts.environment) {
        const std::size_t sign = variable.find('=');
        if (sign == 0 || sign == std::string::npos) {
            throw CLI::ValidationError("--environment: " + variable + " is not NAME=VALUE");
        }
        settings.command.environment.emplace_back(variable.substr(0, sign),
                                                  variable.substr(sign + 1));
    }
    if (texts.idle > 0) {
        settings.times.idle = milliseconds(texts.idle);
    }
    settings.times.start = milliseconds(texts.start);
    settings.times.stop = milliseconds(texts.stop);
    settings.drainTime = milliseconds(texts.drain);
    const auto level = std::find(s_levelNames.begin(), s_levelNames.end(), texts.logLevel);
    settings.logLevel = static_cast<log::Level>(level - s_levelNames.begin());
}

void requireWhatMustBe(const Settings& settings) {
    if (settings.command.arguments.empty()) {
        throw CLI::ValidationError("no program is named");
    }
    if (settings.visitors.empty() && settings.visitorFile.empty()) {
        throw CLI::ValidationError(
            "nobody may come in: name somebody with --visitor or --visitors");
    }
    for (const std::string& name : settings.visitors) {
        if (!Visitors::isUsableName(name)) {
            throw CLI::ValidationError("--visitor: \"" + name +
                                       "\" is no name; it has 1 to 64 of the characters A-Z a-z "
                                       "0-9 - _ . @");
        }
    }
}

}  // namespace

std::optional<int> Settings::parse(int argc, const char* const* argv) {
    CLI::App app("Serves a program in the browser, a process for each visitor", "dova-serve");
    Texts texts;
    app.prefix_command();
    app.allow_config_extras(CLI::config_extras_mode::error);
    addPrograms(app, *this, texts);
    addService(app, *this, texts);
    addLimits(app, command.limits);
    addVisitors(app, *this);
    addGateway(app, gateway, *this);
    app.add_option("--log-level", texts.logLevel, "The least grave lines to write")
        ->type_name("LEVEL")
        ->check(CLI::IsMember(s_levelNames))
        ->capture_default_str();
    app.add_flag("--check", isCheck, "Say what is wrong with the settings, and end");
    app.set_config("--config", "", "Read settings from this file (TOML or INI)");
    app.set_version_flag("--version", "dova-serve (dova2_web) " DOVA_VERSION,
                         "Print the version and exit");
    try {
        app.parse(withEnvironment(app, argc, argv));
        if (const auto behind = app.remaining(); !behind.empty()) {
            command.arguments = behind;
        }
        take(*this, texts);
        requireWhatMustBe(*this);
    } catch (const CLI::CallForHelp&) {
        std::cout << app.help();
        return 0;
    } catch (const CLI::CallForVersion& version) {
        std::cout << version.what() << std::endl;
        return 0;
    } catch (const CLI::Error& error) {
        std::cerr << oneLine(error.what());
        return s_badCommandLine;
    }
    return std::nullopt;
}

std::vector<std::string> Settings::faults() const {
    std::vector<std::string> found;
    const auto check = [&](const std::function<void()>& call) {
        try {
            call();
        } catch (const std::exception& error) {
            found.emplace_back(error.what());
        }
    };
    check([&] {
        gateway::GatewayOptions options = gateway;
        if (options.pageFolder.empty()) {
            options.pageFolder = gateway::installedPage();
        }
        gateway::checkOptions(options);
    });
    check([&] {
        if (!visitorFile.empty()) {
            Visitors::read(visitorFile);
        }
    });
    check([&] {
        if (!socketFolder.empty() && !std::filesystem::is_directory(socketFolder)) {
            throw std::runtime_error("the socket folder " + socketFolder.string() +
                                     " is no folder");
        }
    });
    check([&] { requireRunnable(commandFor(command, "visitor")); });
    return found;
}

Command commandFor(const Command& command, const std::string& visitor) {
    Command filled = command;
    for (std::string& argument : filled.arguments) {
        argument = filledIn(std::move(argument), visitor);
    }
    filled.folder = filledIn(filled.folder.string(), visitor);
    for (auto& [name, value] : filled.environment) {
        value = filledIn(std::move(value), visitor);
    }
    return filled;
}

}  // namespace DOVA::serve
