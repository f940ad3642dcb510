#pragma once

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "ChildProcess.h"
#include "VisitorProgram.h"
#include "gateway/GatewayOptions.h"
#include "log/Log.h"

namespace DOVA::serve {

/// Everything that a site decides: from the command line, else the environment, else a file.
struct Settings {
    /// In arguments, folder and values of the environment "{visitor}" stands for the visitor's
    /// name.
    Command command;
    VisitorProgram::Times times;
    std::size_t programs = 100;
    /// Their tokens are made at every start.
    std::vector<std::string> visitors;
    std::filesystem::path visitorFile;
    /// Where the programs come to; empty: a folder of its own that goes with the service.
    std::filesystem::path socketFolder;
    /// How long old visitors go on when the service is asked to end.
    std::chrono::milliseconds drainTime{0};
    /// The port of the loopback interface for monitoring; nothing: none.
    std::optional<std::uint16_t> statusPort;
    gateway::GatewayOptions gateway;
    log::Level logLevel = log::Level::Info;
    /// Only say what is wrong.
    bool isCheck = false;

    /// Reads them. Gives the exit code when the service must end at once: 0 after `--help` or
    /// `--version`, 2 after one line on standard error for what is wrong.
    std::optional<int> parse(int argc, const char* const* argv);

    /// What is wrong with them beyond their form, a line each.
    std::vector<std::string> faults() const;
};

/// The command for one visitor.
Command commandFor(const Command& command, const std::string& visitor);

}  // namespace DOVA::serve
