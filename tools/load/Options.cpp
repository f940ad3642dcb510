#include "Options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <csignal>
#include <fstream>
#include <iostream>
#include <iterator>
#include <sstream>
#include <stdexcept>

namespace DOVA::load {

namespace {

constexpr int s_badCommandLine = 2;
constexpr std::size_t s_defaultFaults = 10;
const std::vector<std::string> s_roles = {"gateway", "serve", "program"};

/// What the words of the command line say before they are looked at together.
struct Words {
    std::vector<std::string> addresses;
    std::string addressFile;
    std::optional<std::uint64_t> actions;
    std::optional<double> rate;
    double seconds = 10;
    std::string faults;
    std::vector<std::string> processes;
};

std::vector<std::string> split(const std::string& text, char separator) {
    std::vector<std::string> parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, separator);) {
        parts.push_back(part);
    }
    return parts;
}

std::optional<std::uint64_t> toNumber(const std::string& text) {
    const bool isNumber =
        !text.empty() && text.size() <= 9 &&
        std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
    return isNumber ? std::optional<std::uint64_t>(std::stoull(text)) : std::nullopt;
}

void readAddresses(const Words& words, Options& options) {
    for (const std::string& text : words.addresses) {
        options.addresses.push_back(Address::parse(text));
    }
    if (words.addressFile.empty()) {
        return;
    }
    std::ifstream file(words.addressFile);
    for (std::string line; std::getline(file, line);) {
        if (!line.empty()) {
            options.addresses.push_back(Address::parse(line));
        }
    }
    if (file.bad() || !file.eof()) {
        throw std::invalid_argument("cannot read " + words.addressFile);
    }
}

/// Any two of actions, rate and duration give the third.
void readPace(const Words& words, Options& options) {
    const auto pages = static_cast<double>(options.pages());
    const double each = words.seconds / static_cast<double>(options.pagesPerAddress);
    options.duration = std::chrono::milliseconds(static_cast<std::int64_t>(words.seconds * 1000));
    options.actions =
        words.actions.value_or(static_cast<std::uint64_t>(words.rate.value_or(0) * each * pages));
    options.rate = words.rate.value_or(static_cast<double>(options.actions) / pages / each);
    if (words.rate == 0.0 && !words.actions) {
        throw std::invalid_argument("--rate 0, as fast as answers come, needs --actions");
    }
}

Process readProcess(const std::string& word) {
    const std::size_t equals = word.find('=');
    const std::string role = word.substr(0, equals);
    const auto pid = toNumber(equals == word.npos ? "" : word.substr(equals + 1));
    if (!pid || *pid == 0 || std::find(s_roles.begin(), s_roles.end(), role) == s_roles.end()) {
        throw std::invalid_argument("--pid \"" + word +
                                    "\" is not gateway=PID, serve=PID or program=PID");
    }
    if (::kill(static_cast<pid_t>(*pid), 0) != 0) {
        throw std::invalid_argument("--pid " + word + ": there is no such process of ours");
    }
    return {role, static_cast<pid_t>(*pid)};
}

FaultKind readKind(const std::string& name) {
    const auto* const found = std::find(std::begin(s_faultNames), std::end(s_faultNames), name);
    if (found == std::end(s_faultNames)) {
        throw std::invalid_argument("--faults: there is no \"" + name +
                                    "\"; cut, reset, delay, drop, late, stop and kill are");
    }
    return static_cast<FaultKind>(found - std::begin(s_faultNames));
}

/// All that the other options make possible.
std::vector<FaultKind> possibleKinds(const Options& options) {
    std::vector<FaultKind> kinds = {FaultKind::Cut, FaultKind::Reset, FaultKind::Delay,
                                    FaultKind::Drop, FaultKind::Late};
    if (!options.processes.empty()) {
        kinds.push_back(FaultKind::Stop);
    }
    if (!options.restart.empty()) {
        kinds.push_back(FaultKind::Kill);
    }
    return kinds;
}

void checkFaults(const Options& options) {
    const auto& kinds = options.faults.kinds;
    const auto has = [&kinds](FaultKind kind) {
        return std::find(kinds.begin(), kinds.end(), kind) != kinds.end();
    };
    if ((has(FaultKind::Stop) || has(FaultKind::Kill)) && options.processes.empty()) {
        throw std::invalid_argument("to stop and to kill needs --pid");
    }
    if (has(FaultKind::Kill) && options.restart.empty()) {
        throw std::invalid_argument("to kill needs --restart, or everything is over");
    }
}

/// A number is how many, names are the kinds.
void readFaults(const Words& words, Options& options) {
    FaultPlan& plan = options.faults;
    plan.count = words.faults.empty() ? 0 : s_defaultFaults;
    for (const std::string& word : split(words.faults, ',')) {
        if (const auto count = toNumber(word)) {
            plan.count = *count;
        } else {
            plan.kinds.push_back(readKind(word));
        }
    }
    if (plan.kinds.empty()) {
        plan.kinds = possibleKinds(options);
    }
    plan.pages = options.pages();
    plan.processes = options.processes.size();
    plan.span = options.duration;
    checkFaults(options);
}

void declare(CLI::App& app, Words& words, Options& options) {
    app.add_option("ADDRESS", words.addresses, "What a program prints: http://HOST:PORT/#TOKEN");
    app.add_option("--addresses", words.addressFile, "A file with one more address a line")
        ->type_name("FILE")
        ->check(CLI::ExistingFile);
    app.add_option("--pages", options.pagesPerAddress,
                   "Pages for each address, one after the other: each takes over")
        ->check(CLI::Range(1, 1'000'000));
    app.add_option("--actions", words.actions, "Actions of all pages together; 0: only open");
    app.add_option("--rate", words.rate,
                   "Actions a second of each page; 0: as fast as answers come")
        ->check(CLI::Range(0.0, 1e6));
    app.add_option("--duration", words.seconds, "How long it acts and faults happen")
        ->type_name("SECONDS")
        ->check(CLI::Range(0.1, 1e6));
    app.add_option("--opening", options.opening, "So many pages open at a time")
        ->check(CLI::Range(1, 1'000'000));
    app.add_option("--seed", options.faults.seed, "What the schedule of faults is drawn from");
    app.add_option("--faults", words.faults,
                   "How many, of which kinds: 150, or 20,cut,drop; without kinds all that can be")
        ->type_name("COUNT,KINDS");
    app.add_option("--pid", words.processes, "A process to stop and to kill; may be repeated")
        ->type_name("ROLE=PID")
        ->allow_extra_args(false);
    app.add_option("--restart", options.restart, "Starts again what was killed, and becomes it")
        ->type_name("COMMAND");
    app.add_flag("--show-schedule", options.isScheduleOnly, "Print the schedule and end");
    app.add_flag("--json", "One line of JSON, which is the only form");
    app.set_version_flag("--version", "dova-load (dova2_web) " DOVA_VERSION);
}

void read(const Words& words, Options& options) {
    readAddresses(words, options);
    if (options.addresses.empty()) {
        throw std::invalid_argument("no address: what a program prints, http://HOST:PORT/#TOKEN");
    }
    for (const std::string& word : words.processes) {
        options.processes.push_back(readProcess(word));
    }
    readPace(words, options);
    readFaults(words, options);
}

}  // namespace

std::optional<int> parseOptions(int argc, const char* const* argv, Options& options) {
    CLI::App app("Opens programs as pages in browsers do, acts, breaks connections, and counts.",
                 "dova-load");
    app.option_defaults()->always_capture_default();
    Words words;
    declare(app, words, options);
    try {
        app.parse(argc, argv);
        read(words, options);
    } catch (const CLI::CallForHelp&) {
        std::cout << app.help();
        return 0;
    } catch (const CLI::CallForVersion& version) {
        std::cout << version.what() << std::endl;
        return 0;
    } catch (const std::exception& error) {
        std::string line = error.what();
        std::replace(line.begin(), line.end(), '\n', ' ');
        std::cerr << "dova-load: " + line + "\n";
        return s_badCommandLine;
    }
    return std::nullopt;
}

}  // namespace DOVA::load
