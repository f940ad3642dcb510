#include "Account.h"

#include <algorithm>
#include <utility>

namespace DOVA::load {

Account::Account(std::string series, Tally& tally) : m_series(std::move(series)), m_tally(tally) {}

Action Account::next() {
    ++m_tally.actions;
    m_times.push_back(Clock::now());
    return {m_series, ++m_sent};
}

void Account::heard(const Handled& handled) {
    const std::uint64_t number = handled.action.number;
    if (handled.action.series != m_series || number > m_sent) {
        return;
    }
    const Handled before = std::exchange(m_last, handled);
    if (number > m_shown) {
        m_tally.answersLost += number - m_shown - 1;
        m_tally.answersLost -= std::min(number - m_shown - 1, handled.missing - before.missing);
        answered(number);
    } else if (handled.late + handled.repeated == before.late + before.repeated) {
        ++m_tally.answersDoubled;
    }
}

void Account::answered(std::uint64_t number) {
    const auto took = Clock::now() - m_times[number - m_shown - 1];
    for (; m_shown < number; ++m_shown) {
        m_times.pop_front();
    }
    ++m_tally.answered;
    m_tally.roundTrip.add(static_cast<std::uint64_t>(
        std::chrono::duration_cast<std::chrono::microseconds>(took).count()));
}

void Account::close(End end) {
    (end == End::Alive ? m_tally.lost : m_tally.unconfirmed) += unanswered();
    m_tally.lost += m_last.missing;
    m_tally.outOfOrder += m_last.late;
    m_tally.doubled += m_last.repeated;
}

}  // namespace DOVA::load
