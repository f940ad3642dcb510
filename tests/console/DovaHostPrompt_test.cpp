#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>

#include "Terminal.h"
#include "support/JsonRows.h"
#include "support/TemporaryFolder.h"

namespace DOVA::test {

using testing::HasSubstr;

/// dova-host at a prompt, with a history of its own.
class DovaHostPromptTest : public testing::Test {
protected:
    /// Waits for the first prompt.
    struct Prompt : Terminal {
        explicit Prompt(const std::string& state)
            : Terminal(DOVA_HOST, {}, {"XDG_STATE_HOME=" + state, "TERM=xterm"}) {
            readUntil("> ");
        }
    };
    Prompt started() const { return Prompt(state); }

    /// Types a line and gives what comes before the next prompt.
    static std::string entered(Terminal& terminal, const std::string& line) {
        terminal.type(line + "\r");
        terminal.readUntil("\r\n");
        return terminal.readUntil("> ");
    }

    const TemporaryFolder folder;
    const std::string state = folder / "state";
};

TEST_F(DovaHostPromptTest, EvaluatesEntriesOfOneLineAndMore) {
    Prompt terminal = started();
    for (const QJsonValue row : readJson(PROMPT).array()) {
        EXPECT_EQ(entered(terminal, text(row[0])), text(row[1])) << text(row[0]);
    }
    EXPECT_EQ(entered(terminal, "#'" + std::string(6000, 'x') + "'"), "6000\r\n> ");
    terminal.type("\x04");
    EXPECT_EQ(terminal.wait(), 0);
}

TEST_F(DovaHostPromptTest, CompletesNamesOfTheHostAndOfScripts) {
    Prompt terminal = started();
    entered(terminal, "longName = {inside = 42}");
    EXPECT_EQ(entered(terminal, "longN\t.ins\t"), "42\r\n> ");
    EXPECT_EQ(entered(terminal, "a = dova.web.JSONA\t()"), "> ");
    EXPECT_EQ(entered(terminal, "a:isEm\t(), a.Len\t"), "true\t0\r\n> ");
    terminal.type("dova.web.\t\t");
    EXPECT_THAT(terminal.readUntil("resetKORVIDOnlineFlag"), HasSubstr("JSONValue"));
}

TEST_F(DovaHostPromptTest, CtrlCEndsTheScriptOrTheEntryButNotTheProgram) {
    Terminal terminal(DOVA_HOST, {"-i", "-e", "print 'ready'"},
                      {"XDG_STATE_HOME=" + state, "TERM=xterm"});
    EXPECT_EQ(terminal.readUntil("> "), "ready\r\n> ");
    terminal.type("print 'runs' while true do end\r");
    terminal.readUntil("runs\r\n");
    terminal.type("\x03");
    EXPECT_THAT(terminal.readUntil("> "), HasSubstr("stdin:1: interrupted!"));
    terminal.type("for i = 1, 2 do\r");
    terminal.readUntil(">> ");
    terminal.type("error 'never'\x03");
    terminal.readUntil("\r\n> ");
    EXPECT_EQ(entered(terminal, "6 * 7"), "42\r\n> ");
    terminal.type("os.exit(5)\r");
    EXPECT_EQ(terminal.wait(), 5);
}

TEST_F(DovaHostPromptTest, KeepsTheLastThousandLinesForItsOwnerOnly) {
    {
        Prompt terminal = started();
        entered(terminal, "first = 1");
        for (int number = 2; number <= 1001; ++number) {
            entered(terminal, "x = " + std::to_string(number));
        }
        terminal.type("\x04");
        EXPECT_EQ(terminal.wait(), 0);
    }
    const std::string kept = folder.read("state/dova-host/history");
    EXPECT_EQ(std::count(kept.begin(), kept.end(), '\n'), 1001) << "a headline, and the lines";
    EXPECT_EQ(kept.find("first"), kept.npos);
    EXPECT_EQ(std::filesystem::status(state + "/dova-host/history").permissions(),
              std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
    Prompt terminal = started();
    terminal.type("\x1b[A");
    terminal.readUntil("x = 1001");
    terminal.type(" + 1 print('sum', x)\r");
    terminal.readUntil("sum\t1002");
}

TEST_F(DovaHostPromptTest, EndsWithItsTerminalWhateverHappensToTheSignal) {
    Terminal terminal("/usr/bin/env", {"--ignore-signal=HUP", DOVA_HOST},
                      {"XDG_STATE_HOME=" + state, "TERM=xterm"});
    terminal.readUntil("> ");
    terminal.hangUp();
    EXPECT_EQ(terminal.wait(), 1) << "what it still says goes nowhere";
}

TEST_F(DovaHostPromptTest, LosesNothingOfTwoPromptsAndALostTerminal) {
    {
        Prompt one = started(), other = started();
        entered(one, "a = 'of one'");
        entered(other, "b = 'of the other'");
        entered(one, "c = 3");
        other.type("\x04");
        EXPECT_EQ(other.wait(), 0);
    }  // the first is killed
    Prompt terminal = started();
    for (const char* line : {"c = 3", "b = 'of the other'", "a = 'of one'"}) {
        terminal.type("\x1b[A");
        terminal.readUntil(line);
    }
}

TEST_F(DovaHostPromptTest, SaysThatTheHistoryCannotBeKeptAndGoesOn) {
    folder.write("state", "no folder");
    Prompt terminal = started();
    terminal.type("x = 1\r");
    terminal.readUntil("dova-host: cannot keep the history in " + state);
    terminal.readUntil("> ");
    terminal.type("\x04");
    EXPECT_EQ(terminal.wait(), 0);
}

}  // namespace DOVA::test
