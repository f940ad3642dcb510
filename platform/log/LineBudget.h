#pragma once

#include <chrono>
#include <cstddef>

namespace DOVA::log {

/// How many lines may be written, and how many were not. Time is told by the caller.
class LineBudget {
public:
    using Clock = std::chrono::steady_clock;

    static constexpr double burst = 200;
    static constexpr double perSecond = 20;

    /// Whether there is room for a line; takes it.
    bool take(Clock::time_point now);

    void leaveOut() { ++m_leftOut; }
    std::size_t leftOut() const { return m_leftOut; }
    /// A line has told how many were left out.
    void told() { m_leftOut = 0; }

private:
    double m_room = burst;
    Clock::time_point m_last{};
    std::size_t m_leftOut = 0;
};

}  // namespace DOVA::log
