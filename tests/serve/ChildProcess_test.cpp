#include "ChildProcess.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <boost/asio/io_context.hpp>
#include <chrono>
#include <system_error>

#include "support/TemporaryFolder.h"

namespace DOVA::serve {
namespace {

using namespace std::chrono_literals;

Command shell(const std::string& script) {
    Command command;
    command.arguments = {"/bin/sh", "-c", script};
    return command;
}

class ChildProcessTest : public testing::Test {
protected:
    Ending run(const Command& command) {
        std::optional<Ending> ended;
        child = ChildProcess::start(loop, command, [&](const Ending& ending) { ended = ending; });
        await([&] { return ended.has_value(); });
        return ended.value_or(Ending{});
    }

    template <typename Condition>
    void await(Condition&& happened) {
        const auto end = link::Clock::now() + 30s;
        while (!happened() && link::Clock::now() < end) {
            loop.run_one_for(100ms);
        }
    }

    boost::asio::io_context loop;
    std::shared_ptr<ChildProcess> child;
    const test::TemporaryFolder folder;
};

TEST_F(ChildProcessTest, tellsHowItEndedAndWhatItSaidLast) {
    Command limited = shell("ulimit -d >&2; ulimit -n >&2; ulimit -t >&2");
    limited.limits = {64 << 20, {}, 50, 7};
    Command settled = shell("pwd >&2; echo $COLOUR >&2; echo unseen");
    settled.folder = "/";
    settled.environment = {{"COLOUR", "blue"}};
    Command endless = shell("ulimit -t 1; while :; do :; done");
    const std::string long_ = "head -c 100000 /dev/zero | tr '\\0' x >&2; echo end >&2";
    struct {
        Command command;
        bool isFault;
        std::string how, said;
    } const rows[] = {{shell("exit 0"), false, "exit code 0", ""},
                      {shell("echo why >&2; exit 3"), true, "exit code 3", "why\n"},
                      {shell("kill -SEGV $$"), true, "signal 11 (Segmentation fault)", ""},
                      {limited, false, "exit code 0", "65536\n50\n7\n"},
                      {settled, false, "exit code 0", "/\nblue\n"},
                      {endless, true, "signal 9 (Killed)", ""},
                      {shell(long_), false, "exit code 0", std::string(4092, 'x') + "end\n"}};
    for (const auto& row : rows) {
        const Ending ending = run(row.command);
        EXPECT_EQ(ending.isFault, row.isFault) << row.how;
        EXPECT_EQ(ending.how, row.how);
        EXPECT_EQ(ending.lastWords, row.said) << row.how;
    }
}

TEST_F(ChildProcessTest, inheritsNothingThatIsOpenHere) {
    const int open = ::open("/", O_RDONLY);
    ASSERT_GT(open, 2);
    const std::string folderOfTheirOwn = "3\n";
    EXPECT_EQ(run(shell("exec ls /proc/self/fd >&2")).lastWords, "0\n1\n2\n" + folderOfTheirOwn);
    ::close(open);
}

TEST_F(ChildProcessTest, isEndedInTheEndAlsoWhenItDoesNotWantTo) {
    bool isEnded = false;
    const std::string deaf = folder / "deaf";
    child = ChildProcess::start(loop,
                                shell("trap '' TERM; >" + deaf + "; while :; do sleep 0.01; done"),
                                [&](const Ending& ending) {
                                    isEnded = true;
                                    EXPECT_EQ(ending.how, "signal 9 (Killed)");
                                });
    await([&] { return std::filesystem::exists(deaf); });
    child->terminate(50ms);
    await([&] { return isEnded; });
    EXPECT_TRUE(isEnded);
}

TEST_F(ChildProcessTest, saysInOneLineWhatCannotBeStarted) {
    Command lost = shell("");
    lost.folder = "/no/such/folder";
    Command foreign = shell("");
    foreign.user = "nobody-of-that-name";
    Command none, locked;
    none.arguments = {"/no/such/program"};
    locked.arguments = {folder.write("text", "no program")};
    struct {
        Command command;
        std::string start, check;
    } const rows[] = {
        {none, "cannot start /no/such/program: No such file or directory", ""},
        {locked, "cannot start " + locked.arguments[0] + ": Permission denied", ""},
        {lost, "cannot start /bin/sh: No such file or directory",
         "cannot work in /no/such/folder: Not a directory"},
        {foreign, "there is no user nobody-of-that-name: No such file or directory", ""}};
    for (const auto& row : rows) {
        const auto why = [](const auto& call) -> std::string {
            try {
                call();
            } catch (const std::system_error& error) {
                return error.what();
            }
            return "";
        };
        EXPECT_EQ(why([&] { run(row.command); }), row.start);
        EXPECT_EQ(why([&] { requireRunnable(row.command); }),
                  row.check.empty() ? row.start : row.check);
    }
    EXPECT_NO_THROW(requireRunnable(shell("")));
}

}  // namespace
}  // namespace DOVA::serve
