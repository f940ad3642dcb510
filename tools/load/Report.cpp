#include "Report.h"

#include <algorithm>
#include <cstdio>

namespace DOVA::load {

namespace {

/// Members in the order in which they are added; all names and texts are plain.
class JsonLine {
public:
    void add(const char* name, std::uint64_t value) { put(name, std::to_string(value)); }
    void add(const char* name, const std::string& text) { put(name, "\"" + text + "\""); }
    void add(const char* name, double value) {
        char digits[32];
        std::snprintf(digits, sizeof digits, "%.3f", value);
        put(name, digits);
    }
    void put(const std::string& name, const std::string& json) {
        m_text += (m_text.empty() ? "\"" : ",\"") + name + "\":" + json;
    }
    std::string text() const { return "{" + m_text + "}"; }

private:
    std::string m_text;
};

/// Percentiles of microseconds, in units of so many of them.
void addTimes(JsonLine& line, const std::string& name, const Histogram& times, double unit) {
    const auto put = [&](const char* which, std::uint64_t value) {
        const bool isWhole = unit == 1;
        char digits[32];
        std::snprintf(digits, sizeof digits, isWhole ? "%.0f" : "%.3f",
                      static_cast<double>(value) / unit);
        line.put(name + which + (isWhole ? "_us" : "_ms"), digits);
    };
    put("_p50", times.percentile(0.5));
    put("_p90", times.percentile(0.9));
    put("_p99", times.percentile(0.99));
    put("_max", times.largest());
}

double secondsOf(std::chrono::microseconds time) {
    return std::chrono::duration<double>(time).count();
}

double per(double value, double count) {
    return count > 0 ? value / count : 0;
}

void addPages(JsonLine& line, const Options& options, const Simulation& run) {
    const Tally& tally = run.tally();
    line.add("addresses", std::uint64_t{options.addresses.size()});
    line.add("pages", std::uint64_t{options.pages()});
    line.add("pages_opened", tally.pagesOpened);
    line.add("opens_per_second",
             per(static_cast<double>(options.addresses.size()), secondsOf(run.measured().opening)));
    addTimes(line, "open", tally.open, 1000);
}

void addActions(JsonLine& line, const Simulation& run) {
    const Tally& tally = run.tally();
    const double seconds = secondsOf(run.measured().acting);
    line.add("actions", tally.actions);
    line.add("actions_answered", tally.answered);
    line.add("actions_lost", tally.lost);
    line.add("actions_doubled", tally.doubled);
    line.add("actions_out_of_order", tally.outOfOrder);
    line.add("actions_unconfirmed", tally.unconfirmed);
    line.add("answers_lost", tally.answersLost);
    line.add("answers_doubled", tally.answersDoubled);
    line.add("actions_per_second", per(static_cast<double>(tally.answered), seconds));
    addTimes(line, "round_trip", tally.roundTrip, 1);
}

void addSessions(JsonLine& line, const Simulation& run) {
    const Tally& tally = run.tally();
    line.add("resumes", tally.resumes);
    line.add("resumes_without_fault", tally.resumesWithoutFault);
    addTimes(line, "resume", tally.resume, 1000);
    line.add("hangs", tally.hangs);
    line.add("gaps", tally.gaps);
    line.add("sessions_lost", tally.sessionsLost);
    line.add("sessions_killed", tally.sessionsKilled);
    line.add("sessions_taken_over", tally.sessionsTakenOver);
    JsonLine refusals;
    for (const auto& [status, count] : tally.refusals) {
        refusals.put(std::to_string(status), std::to_string(count));
    }
    line.put("refusals", refusals.text());
}

void addCosts(JsonLine& line, const Simulation& run) {
    const Measured& measured = run.measured();
    const Tally& tally = run.tally();
    const auto processor = static_cast<double>(measured.processorTime.count());
    line.add("bytes_up", tally.bytesUp);
    line.add("bytes_down", tally.bytesDown);
    line.add("duration_s", secondsOf(measured.acting));
    line.add("own_memory_per_page_kb", static_cast<double>(measured.memoryPerPage) / 1024);
    line.add("own_cpu_ms", processor / 1000);
    line.add("own_cpu_per_action_us", per(processor, static_cast<double>(tally.answered)));
}

}  // namespace

std::string toJson(const Options& options, const Simulation& run) {
    JsonLine line;
    line.add("seed", options.faults.seed);
    line.add("faults", std::uint64_t{run.measured().faultsDone});
    line.add("schedule", digest(run.schedule()));
    addPages(line, options, run);
    addActions(line, run);
    addSessions(line, run);
    addCosts(line, run);
    return line.text();
}

std::string complaintAbout(const Simulation& run) {
    const Tally& tally = run.tally();
    const std::pair<std::uint64_t, const char*> counts[] = {
        {run.pagesNotOpened(), "pages not opened"}, {tally.lost, "actions lost"},
        {tally.doubled, "actions doubled"},         {tally.outOfOrder, "actions out of order"},
        {tally.answersLost, "answers lost"},        {tally.answersDoubled, "answers doubled"},
        {tally.sessionsLost, "sessions lost"},
    };
    std::string complaint;
    for (const auto& [count, what] : counts) {
        if (count > 0) {
            complaint += (complaint.empty() ? "" : ", ") + std::to_string(count) + " " + what;
        }
    }
    for (const auto& [status, count] : tally.refusals) {
        complaint += complaint.empty() ? "" : ", refused with " + std::to_string(status);
    }
    return complaint;
}

}  // namespace DOVA::load
