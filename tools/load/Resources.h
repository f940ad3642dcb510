#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>

namespace DOVA::load {

/// Lets this process have so many open files. Throws std::runtime_error with one sentence when the
/// system does not.
void allowOpenFiles(std::size_t count);

/// Of this process since its start, in user and system mode.
std::chrono::microseconds processorTime();

/// What this process has in memory, in bytes; what the system keeps for its connections not.
std::uint64_t residentMemory();

}  // namespace DOVA::load
