#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>

#include "RemoteProgram.h"

namespace DOVA::serve {

/// How long starts took, from the process to its coming to the socket.
class StartTimes {
public:
    void add(std::chrono::milliseconds time);

    static constexpr std::array<int, 8> s_milliseconds{5, 10, 20, 50, 100, 500, 2000, 10000};

    /// So many took at most s_milliseconds[index].
    std::uint64_t atMost(std::size_t index) const { return m_atMost[index]; }
    std::uint64_t count() const { return m_count; }
    std::chrono::milliseconds sum() const { return m_sum; }

private:
    std::array<std::uint64_t, s_milliseconds.size()> m_atMost{};
    std::uint64_t m_count = 0;
    std::chrono::milliseconds m_sum{};
};

/// What the service tells of itself.
struct Metrics {
    std::size_t visitors = 0;  ///< who may come in
    std::size_t programs = 0;  ///< that run
    std::size_t pages = 0;     ///< that are connected, or wait for their program
    link::RemoteProgram::Counts passed;
    std::uint64_t faults = 0;  ///< programs that failed
    std::map<std::string, std::uint64_t> refusals;
    std::map<std::string, std::uint64_t> memory;  ///< bytes of each visitor's program
    StartTimes starts;
};

/// The two forms in which monitoring reads them: OpenMetrics 1.0, and the older text format 0.0.4,
/// which is all that some readers ask for.
enum class Form { OpenMetrics, Text };

std::string text(const Metrics& metrics, Form form);

/// The resident memory of a process in bytes; 0 when it is gone.
std::uint64_t residentBytes(int pid);

}  // namespace DOVA::serve
