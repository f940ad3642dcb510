#include "Schedule.h"

#include <algorithm>
#include <cstdio>
#include <random>
#include <tuple>

namespace DOVA::load {

namespace {

using std::chrono::milliseconds;

/// The standard's distributions draw differently from library to library, its engines do not.
class Draws {
public:
    explicit Draws(std::uint64_t seed) : m_engine(seed) {}

    std::uint64_t below(std::uint64_t limit) { return limit == 0 ? 0 : m_engine() % limit; }
    milliseconds between(milliseconds least, milliseconds most) {
        const auto width =
            static_cast<std::uint64_t>(std::max(most - least, milliseconds(1)).count());
        return least + milliseconds(below(width));
    }

private:
    std::mt19937_64 m_engine;
};

struct Lengths {
    milliseconds least;
    milliseconds most;
};

/// Of the kinds, in their order. A page that is held up for longer than its patience would begin
/// another connection by itself, which is another fault.
constexpr Lengths s_lengths[] = {
    {milliseconds(0), milliseconds(1000)},   {milliseconds(0), milliseconds(1000)},
    {milliseconds(50), milliseconds(1500)},  {milliseconds(100), milliseconds(1500)},
    {milliseconds(100), milliseconds(1000)}, {milliseconds(50), milliseconds(1000)},
    {milliseconds(100), milliseconds(500)},
};

/// Each fault takes the same number of draws, whatever it becomes.
Fault draw(Draws& draws, const FaultPlan& plan) {
    const milliseconds margin = plan.span / 20;
    const milliseconds at = draws.between(margin, plan.span - margin);
    const FaultKind kind = plan.kinds[draws.below(plan.kinds.size())];
    const std::size_t target = draws.below(isOfProcess(kind) ? plan.processes : plan.pages);
    const auto direction = draws.below(2) == 0 ? Direction::Up : Direction::Down;
    const Lengths& lengths = s_lengths[static_cast<std::size_t>(kind)];
    return {at, kind, target, direction, draws.between(lengths.least, lengths.most)};
}

std::string lineOf(const Fault& fault) {
    const bool hasDirection = fault.kind == FaultKind::Delay || fault.kind == FaultKind::Drop;
    const char* const direction = fault.direction == Direction::Up ? " up" : " down";
    return std::to_string(fault.at.count()) + " " +
           s_faultNames[static_cast<std::size_t>(fault.kind)] +
           (isOfProcess(fault.kind) ? " process " : " page ") + std::to_string(fault.target) +
           (hasDirection ? direction : "") + " " + std::to_string(fault.length.count()) + "\n";
}

}  // namespace

std::vector<Fault> drawSchedule(const FaultPlan& plan) {
    Draws draws(plan.seed);
    std::vector<Fault> schedule;
    for (std::size_t drawn = 0; drawn < plan.count && !plan.kinds.empty(); ++drawn) {
        schedule.push_back(draw(draws, plan));
    }
    std::stable_sort(schedule.begin(), schedule.end(),
                     [](const Fault& one, const Fault& other) { return one.at < other.at; });
    return schedule;
}

std::string toText(const std::vector<Fault>& schedule) {
    std::string text;
    for (const Fault& fault : schedule) {
        text += lineOf(fault);
    }
    return text;
}

std::string digest(const std::vector<Fault>& schedule) {
    std::uint64_t hash = 0xcbf29ce484222325;
    for (const char character : toText(schedule)) {
        hash = (hash ^ static_cast<unsigned char>(character)) * 0x100000001b3;
    }
    char digits[17];
    std::snprintf(digits, sizeof digits, "%016llx", static_cast<unsigned long long>(hash));
    return digits;
}

}  // namespace DOVA::load
