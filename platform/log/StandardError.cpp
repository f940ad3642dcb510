#include "log/StandardError.h"

#include <unistd.h>

#include <algorithm>
#include <mutex>
#include <string>

#include "LineBudget.h"
#include "UnwaitingFile.h"

namespace DOVA::log {

namespace {

/// What a pipe takes whole or not at all is 4,096 bytes.
constexpr std::size_t s_longest = 4000;

class StandardError {
public:
    void writeLine(std::string_view line) {
        const std::lock_guard<std::mutex> lock(m_mutex);
        const bool hasRoom = m_budget.take(LineBudget::Clock::now());
        if (!hasRoom || !tellLeftOut() || !m_file.write(text(line))) {
            m_budget.leaveOut();
        }
    }

private:
    static std::string text(std::string_view line) {
        std::string result(line.substr(0, s_longest));
        std::replace(result.begin(), result.end(), '\n', ' ');
        return result + (line.size() > s_longest ? " ...\n" : "\n");
    }

    bool tellLeftOut() {
        if (m_budget.leftOut() == 0) {
            return true;
        }
        const bool isWritten =
            m_file.write("log: " + std::to_string(m_budget.leftOut()) + " lines were left out\n");
        if (isWritten) {
            m_budget.told();
        }
        return isWritten;
    }

    std::mutex m_mutex;
    LineBudget m_budget;
    UnwaitingFile m_file{STDERR_FILENO};
};

}  // namespace

void writeLine(std::string_view line) noexcept {
    try {
        // Never destroyed: the last lines of a program come from its last destructors.
        static StandardError& s_standardError = *new StandardError;
        s_standardError.writeLine(line);
    } catch (...) {
        // Out of memory: a log is no reason to end.
    }
}

}  // namespace DOVA::log
