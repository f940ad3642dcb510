#pragma once

#include <chrono>
#include <cstddef>

namespace DOVA::session {

/// A token bucket: `burst` tokens at first, refilled with `perSecond` up to that. What has been
/// done already is charged, whether or not there are tokens for it: the bucket may be in debt. Time
/// is told by the caller and must not go back.
class Throttle {
public:
    using Clock = std::chrono::steady_clock;

    Throttle(std::size_t perSecond, std::size_t burst);

    /// Takes tokens that may not be there.
    void charge(std::size_t tokens, Clock::time_point now);

    /// Whether nothing is left.
    bool isExhausted() const { return m_tokens < 1; }

    /// Whether more is owed than the bucket ever holds.
    bool isOverdrawn() const { return m_tokens < -m_burst; }

    /// How long until `wanted` tokens are there, or the bucket is full.
    Clock::duration waitFor(std::size_t wanted) const;

    /// Adds what has come in by now.
    void refill(Clock::time_point now);

private:
    const double m_perSecond;
    const double m_burst;
    double m_tokens;
    Clock::time_point m_refilled{};
};

}  // namespace DOVA::session
