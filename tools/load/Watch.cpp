#include "Watch.h"

namespace DOVA::load {

namespace {

/// So long after an action the other side is told how far it should have come.
constexpr std::chrono::seconds s_tail{1};
/// So long after an action a connection without an answer is given up.
constexpr std::chrono::milliseconds s_patience{4500};
/// Silence of this length is broken by a question ...
constexpr std::chrono::seconds s_quiet{10};
/// ... and of this length means that nobody is there.
constexpr std::chrono::seconds s_silence{25};

}  // namespace

Watch::Watch(Loop& loop, Watched& watched)
    : m_watched(watched), m_timer(loop.get_executor()), m_due(Clock::time_point::max()) {}

void Watch::begin() {
    m_heardAt = Clock::now();
    m_hasAsked = false;
    await(0);
    m_due = Clock::time_point::max();
    sent();
}

void Watch::sent() {
    if (m_awaited == 0) {
        await(m_watched.awaited());
    }
    if (const Clock::time_point next = due(); next < m_due) {
        lookAt(next);
    }
}

void Watch::heard() {
    m_heardAt = Clock::now();
    m_hasAsked = false;
    if (const std::uint64_t awaited = m_watched.awaited(); awaited != m_awaited) {
        await(awaited);
    }
}

void Watch::await(std::uint64_t awaited) {
    m_awaited = awaited;
    m_since = Clock::now();
    m_hasTold = false;
}

void Watch::end() {
    m_timer.cancel();
}

Clock::time_point Watch::due() const {
    const auto silent = m_heardAt + (m_hasAsked ? s_silence : s_quiet);
    const auto answer = m_since + (m_hasTold ? Clock::duration(s_patience) : s_tail);
    return m_awaited == 0 ? silent : std::min<Clock::time_point>(silent, answer);
}

void Watch::lookAt(Clock::time_point due) {
    m_due = due;
    m_timer.expires_at(due);
    m_timer.async_wait([this](boost::system::error_code error) {
        if (!error) {
            look();
        }
    });
}

void Watch::look() {
    const Clock::time_point now = Clock::now();
    const bool isSilent = m_hasAsked && now >= m_heardAt + s_silence;
    if (isSilent || (m_awaited != 0 && now >= m_since + s_patience)) {
        return m_watched.hangs();
    }
    const bool isTail = m_awaited != 0 && !m_hasTold && now >= m_since + s_tail;
    const bool isQuiet = !m_hasAsked && now >= m_heardAt + s_quiet;
    if (isTail || isQuiet) {
        m_hasTold = m_hasTold || isTail;
        m_hasAsked = m_hasAsked || isQuiet;
        m_watched.ask();
    }
    lookAt(due());
}

}  // namespace DOVA::load
