#pragma once

#include <chrono>
#include <cstddef>

namespace DOVA::gateway {

/// A token bucket: `burst` tokens at first, refilled with `perSecond` up to that. Time is told by
/// the caller and must not go back.
class Throttle {
public:
    using Clock = std::chrono::steady_clock;

    Throttle(std::size_t perSecond, std::size_t burst);

    /// Takes up to `wanted` tokens and returns how many it got.
    std::size_t take(std::size_t wanted, Clock::time_point now);

    /// How long until `wanted` tokens are there, or the bucket is full.
    Clock::duration waitFor(std::size_t wanted) const;

private:
    void refill(Clock::time_point now);

    const double m_perSecond;
    const double m_burst;
    double m_tokens;
    Clock::time_point m_refilled{};
};

}  // namespace DOVA::gateway
