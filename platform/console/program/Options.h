#pragma once

#include <optional>
#include <string>
#include <vector>

#include "runtime/HostOptions.h"

namespace DOVA::console {

/// What the command line of dova-host asks for.
struct Options {
    std::vector<std::string> texts;      ///< to run first, in this order
    std::optional<std::string> script;   ///< the script's file; "-" is standard input
    std::vector<std::string> arguments;  ///< the script's
    bool isInteractive = false;          ///< a prompt, whatever else runs
    bool isServed = false;               ///< beside a dialog in a browser
    bool loadModule = true;              ///< before anything runs
    runtime::HostOptions host;           ///< of a program that is served

    /// Reads a command line. Gives the exit code instead when the program is to end at once: 0
    /// after `--help`, 2 for a bad one, of which one line on standard error tells.
    static std::optional<int> parse(int argc, const char* const* argv, Options& options);
};

}  // namespace DOVA::console
