#include "log/StandardError.h"

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

/// A program stood still as soon as it had written more than the pipe held.
TEST(StandardErrorTest, NeverWaitsAndTellsWhatWasLeftOut) {
    const std::function<int(int*)> kinds[] = {
        [](int* ends) { return ::pipe(ends); },
        [](int* ends) { return ::socketpair(AF_UNIX, SOCK_STREAM, 0, ends); },
    };
    for (const auto& open : kinds) {
        FullStandardError standardError(open);
        writeLine("one");
        writeLine("two");
        EXPECT_THAT(standardError.readAll(), Not(HasSubstr("one")));
        writeLine("a line\nin two " + std::string(5000, 'x'));
        EXPECT_THAT(
            standardError.readAll(),
            testing::MatchesRegex("log: [23] lines were left out\na line in two x+ \\.\\.\\.\n"));
        standardError.loseReader();
        writeLine("to nobody");
    }
}

TEST(StandardErrorTest, WritesOnlySoManyLinesASecond) {
    FullStandardError standardError([](int* ends) { return ::pipe(ends); });
    standardError.readAll();
    for (int line = 0; line < 10000; ++line) {
        writeLine("line");
    }
    const std::string written = standardError.readAll();
    const auto count = std::count(written.begin(), written.end(), '\n');
    EXPECT_GT(count, 100);
    EXPECT_LT(count, 1000);
}

}  // namespace
}  // namespace DOVA::log
