#include "log/Log.h"

#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <ctime>
#include <mutex>

#include "UnwaitingFile.h"

namespace DOVA::log {

namespace {

/// What a pipe takes whole or not at all is 4,096 bytes.
constexpr std::size_t s_longest = 4000;
constexpr double s_burst = 200;
constexpr double s_perSecond = 20;

std::atomic<Level> s_level{Level::Warning};

/// How many bytes of UTF-8 the control character has that stands there; 0 for any other character.
std::size_t controlBytes(const std::string& text, std::size_t at) {
    const auto byte = static_cast<unsigned char>(text[at]);
    if (byte < ' ' || byte == 0x7F) {
        return 1;
    }
    const unsigned next = at + 1 < text.size() ? static_cast<unsigned char>(text[at + 1]) : 0;
    return byte == 0xC2 && next >= 0x80 && next < 0xA0 ? 2 : 0;
}

std::string line(Level level, const std::string& who, const std::string& text) {
    char time[40];
    const std::time_t now = std::time(nullptr);
    std::tm parts{};
    std::strftime(time, sizeof time, "%FT%T%z ", localtime_r(&now, &parts));
    std::string result = time;
    result.append(levelNames[static_cast<int>(level)]).append(" ").append(who).append(": ");
    result.append(text, 0, s_longest);
    // Whoever has a say in a text must neither forge a line nor steer a terminal.
    for (std::size_t at = 0; at < result.size(); ++at) {
        if (const std::size_t bytes = controlBytes(result, at)) {
            result.replace(at, bytes, 1, ' ');
        }
    }
    return result + (text.size() > s_longest ? " ...\n" : "\n");
}

class StandardError {
public:
    void write(const std::string& line) {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (!hasRoom() || !tellLeftOut() || !m_file.write(line)) {
            ++m_leftOut;
        }
    }

private:
    using Clock = std::chrono::steady_clock;

    bool hasRoom() {
        const Clock::time_point now = Clock::now();
        const std::chrono::duration<double> passed = now - m_last;
        m_last = now;
        m_room = std::min(s_burst, m_room + passed.count() * s_perSecond);
        return m_room >= 1 && m_room-- >= 1;
    }

    bool tellLeftOut() {
        if (m_leftOut > 0 &&
            m_file.write(
                line(Level::Warning, "log", std::to_string(m_leftOut) + " lines were left out"))) {
            m_leftOut = 0;
        }
        return m_leftOut == 0;
    }

    std::mutex m_mutex;
    double m_room = s_burst;
    Clock::time_point m_last{};
    std::size_t m_leftOut = 0;
    UnwaitingFile m_file{STDERR_FILENO};
};

}  // namespace

void setLevel(Level level) noexcept {
    s_level = level;
}

void write(Level level, const std::string& who, const std::string& text) noexcept {
    if (level > s_level) {
        return;
    }
    try {
        // Never destroyed: the last lines of a program come from its last destructors.
        static StandardError& s_standardError = *new StandardError;
        s_standardError.write(line(level, who, text));
    } catch (...) {
        // Out of memory: a log is no reason to end.
    }
}

}  // namespace DOVA::log
