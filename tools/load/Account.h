#pragma once

#include <boost/circular_buffer.hpp>
#include <cstdint>
#include <string>

#include "Ledger.h"
#include "Loop.h"
#include "Tally.h"

namespace DOVA::load {

/// The page's side of the count, for one session: what it did, and whether what the program says
/// fits.
class Account {
public:
    /// How a session ended, for what was done in it.
    enum class End { Alive, Gone };

    Account(std::string series, Tally& tally);

    /// The next action, done now.
    Action next();
    /// What the program says; another session's is ignored.
    void heard(const Handled& handled);
    std::uint64_t unanswered() const { return m_sent - m_shown; }
    /// Once: an action that is not answered is lost where the session is alive.
    void close(End end);

private:
    void answered(std::uint64_t number);

    std::string m_series;
    Tally& m_tally;
    std::uint64_t m_sent = 0;
    std::uint64_t m_shown = 0;
    Handled m_last;
    boost::circular_buffer_space_optimized<Clock::time_point> m_times{1 << 24};
};

}  // namespace DOVA::load
