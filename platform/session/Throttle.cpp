#include "Throttle.h"

#include <algorithm>

namespace DOVA::session {

Throttle::Throttle(std::size_t perSecond, std::size_t burst)
    : m_perSecond(static_cast<double>(perSecond)),
      m_burst(static_cast<double>(burst)),
      m_tokens(m_burst) {}

void Throttle::charge(std::size_t tokens, Clock::time_point now) {
    refill(now);
    m_tokens -= static_cast<double>(tokens);
}

Throttle::Clock::duration Throttle::waitFor(std::size_t wanted) const {
    const double missing = std::min(static_cast<double>(wanted), m_burst) - m_tokens;
    const std::chrono::duration<double> wait(std::max(0.0, missing) / m_perSecond);
    return std::chrono::duration_cast<Clock::duration>(wait) + Clock::duration(1);
}

void Throttle::refill(Clock::time_point now) {
    const std::chrono::duration<double> passed = now - m_refilled;
    m_tokens = std::min(m_burst, m_tokens + passed.count() * m_perSecond);
    m_refilled = now;
}

}  // namespace DOVA::session
