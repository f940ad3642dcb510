#include "Ledger.h"

#include <charconv>

namespace DOVA::load {

namespace {

/// More at a time nobody can lose; whoever types such a number must not fill the memory.
constexpr std::uint64_t s_mostMissing = 1'000'000;

/// Takes the number and the blank before it off the end.
std::optional<std::uint64_t> takeNumber(std::string_view& text) {
    const std::size_t blank = text.rfind(' ');
    if (blank == std::string_view::npos) {
        return {};
    }
    const char* const end = text.data() + text.size();
    std::uint64_t number = 0;
    const auto [stop, error] = std::from_chars(text.data() + blank + 1, end, number);
    if (error != std::errc() || stop != end) {
        return {};
    }
    text = text.substr(0, blank);
    return number;
}

}  // namespace

std::optional<Action> Action::parse(std::string_view text) {
    const auto number = takeNumber(text);
    if (!number || *number == 0 || text.empty() || text.find(' ') != std::string_view::npos) {
        return {};
    }
    return Action{std::string(text), *number};
}

std::string Handled::text() const {
    std::string text = action.text();
    for (const std::uint64_t count : {missing, late, repeated}) {
        text += " " + std::to_string(count);
    }
    return text;
}

std::optional<Handled> Handled::parse(std::string_view text) {
    const auto repeated = takeNumber(text);
    const auto late = takeNumber(text);
    const auto missing = takeNumber(text);
    const auto action = Action::parse(text);
    if (!repeated || !late || !missing || !action) {
        return {};
    }
    return Handled{*action, *missing, *late, *repeated};
}

Handled Ledger::handle(const Action& action) {
    if (action.number > m_largest) {
        skipTo(action.number);
    } else if (m_missing.erase(action.number) > 0) {
        ++m_late;
    } else {
        ++m_repeated;
    }
    return {action, m_missing.size() + m_forgotten, m_late, m_repeated};
}

void Ledger::skipTo(std::uint64_t number) {
    const std::uint64_t next = m_largest + 1;
    m_largest = number;
    if (number - next > s_mostMissing) {
        m_forgotten += number - next;
        return;
    }
    for (std::uint64_t missing = next; missing < number; ++missing) {
        m_missing.insert(m_missing.end(), missing);
    }
}

}  // namespace DOVA::load
