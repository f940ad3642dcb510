#include "log/Log.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <functional>
#include <string>

namespace DOVA::log {
namespace {

using testing::HasSubstr;

/// Both ends of something that can be full, in the place of standard error.
class FullStandardError {
public:
    explicit FullStandardError(const std::function<int(int*)>& open) {
        EXPECT_EQ(open(m_ends.data()), 0);
        m_before = ::dup(STDERR_FILENO);
        ::dup2(m_ends[1], STDERR_FILENO);
        fill();
    }
    ~FullStandardError() {
        ::dup2(m_before, STDERR_FILENO);
        for (const int descriptor : {m_ends[0], m_ends[1], m_before}) {
            ::close(descriptor);
        }
    }
    FullStandardError(const FullStandardError&) = delete;
    FullStandardError& operator=(const FullStandardError&) = delete;

    std::string readAll() {
        std::string result;
        std::array<char, 65536> part{};
        for (pollfd asked{m_ends[0], POLLIN, 0}; ::poll(&asked, 1, 0) == 1;) {
            const ssize_t size = ::read(m_ends[0], part.data(), part.size());
            result.append(part.data(), static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
            if (size <= 0) {
                break;
            }
        }
        return result;
    }

    void loseReader() {
        ::close(m_ends[0]);
        m_ends[0] = -1;
    }

private:
    /// By a description that waits for nobody for as long as this takes.
    void fill() {
        const int flags = ::fcntl(m_ends[1], F_GETFL);
        ::fcntl(m_ends[1], F_SETFL, flags | O_NONBLOCK);
        for (const std::size_t size : {1000, 1}) {
            const std::string some(size, '.');
            while (::write(m_ends[1], some.data(), some.size()) > 0) {
            }
        }
        ::fcntl(m_ends[1], F_SETFL, flags);
    }

    std::array<int, 2> m_ends{};
    int m_before = -1;
};

// First, since the others leave no room for more lines.
TEST(LogTest, LeavesOutWhatIsLessGraveThanItsLevel) {
    for (const auto& [level, count] : {std::pair(Level::Error, 1), std::pair(Level::Debug, 4),
                                       std::pair(Level::Info, 3), std::pair(Level::Warning, 2)}) {
        setLevel(level);
        testing::internal::CaptureStderr();
        for (const Level written : {Level::Error, Level::Warning, Level::Info, Level::Debug}) {
            write(written, "test", "");
        }
        const std::string lines = testing::internal::GetCapturedStderr();
        EXPECT_EQ(std::count(lines.begin(), lines.end(), '\n'), count);
    }
}

/// A program stood still as soon as it had written more than the pipe held.
TEST(LogTest, NeverWaitsAndTellsWhatWasLeftOut) {
    const std::function<int(int*)> kinds[] = {
        [](int* ends) { return ::pipe(ends); },
        [](int* ends) { return ::socketpair(AF_UNIX, SOCK_STREAM, 0, ends); },
    };
    for (const auto& open : kinds) {
        FullStandardError standardError(open);
        write(Level::Error, "test", "one");
        write(Level::Error, "test", "two");
        EXPECT_THAT(standardError.readAll(), Not(HasSubstr("one")));
        write(Level::Error, "test", "a\u009Bline\nin\033two " + std::string(5000, 'x'));
        EXPECT_THAT(standardError.readAll(),
                    testing::MatchesRegex("[-+:0-9T]+ warning log: [23] lines were left out\n"
                                          "[-+:0-9T]+ error test: a line in two x+ \\.\\.\\.\n"));
        standardError.loseReader();
        write(Level::Error, "test", "to nobody");
    }
}

TEST(LogTest, WritesOnlySoManyLinesASecond) {
    FullStandardError standardError([](int* ends) { return ::pipe(ends); });
    standardError.readAll();
    for (int line = 0; line < 10000; ++line) {
        write(Level::Error, "test", "line");
    }
    const std::string written = standardError.readAll();
    const auto count = std::count(written.begin(), written.end(), '\n');
    EXPECT_GT(count, 100);
    EXPECT_LT(count, 1000);
}

}  // namespace
}  // namespace DOVA::log
