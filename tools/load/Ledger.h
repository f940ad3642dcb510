#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace DOVA::load {

/// An action as a page types it: "SERIES NUMBER", numbered from 1 in each series.
struct Action {
    std::string series;
    std::uint64_t number = 0;

    std::string text() const { return series + " " + std::to_string(number); }
    /// Nothing for another text.
    static std::optional<Action> parse(std::string_view text);
};

/// What a program says after each action: "SERIES NUMBER MISSING LATE REPEATED".
struct Handled {
    Action action;
    /// How many below the largest number have not come.
    std::uint64_t missing = 0;
    /// How many came after a larger one.
    std::uint64_t late = 0;
    /// How many came more than once.
    std::uint64_t repeated = 0;

    std::string text() const;
    /// Nothing for another text.
    static std::optional<Handled> parse(std::string_view text);
};

/// The program's side of the count: which numbers of one series were handled.
class Ledger {
public:
    Handled handle(const Action& action);

private:
    /// `number` is the largest now, and those between the former and it are missing.
    void skipTo(std::uint64_t number);

    std::uint64_t m_largest = 0;
    std::set<std::uint64_t> m_missing;
    std::uint64_t m_forgotten = 0;
    std::uint64_t m_late = 0;
    std::uint64_t m_repeated = 0;
};

}  // namespace DOVA::load
