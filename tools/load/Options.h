#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "Address.h"
#include "Processes.h"
#include "Schedule.h"

namespace DOVA::load {

/// What a run is to do.
struct Options {
    std::vector<Address> addresses;
    /// For each address, one after the other: each takes over from the one before it.
    std::size_t pagesPerAddress = 1;
    /// Of all pages together, shared evenly; 0: pages only open and stay.
    std::uint64_t actions = 0;
    /// Actions a second of a page; 0: each as soon as the one before it is answered.
    double rate = 0;
    std::chrono::milliseconds duration{10000};
    /// So many pages open at a time.
    std::size_t opening = 32;
    FaultPlan faults;
    std::vector<Process> processes;
    std::string restart;
    bool isScheduleOnly = false;

    std::size_t pages() const { return addresses.size() * pagesPerAddress; }
};

/// Reads the command line. Gives an exit code where there is nothing to run: 0 after --help and
/// --version, 2 after one line on standard error for what cannot be meant.
std::optional<int> parseOptions(int argc, const char* const* argv, Options& options);

}  // namespace DOVA::load
