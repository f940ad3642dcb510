#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>

#include "Terminal.h"
#include "support/TemporaryFolder.h"

namespace DOVA::test {

using testing::HasSubstr;

/// dova-host at a prompt, with a history of its own.
class DovaHostPromptTest : public testing::Test {
protected:
    Terminal started(const std::vector<std::string>& arguments = {}) const {
        return Terminal(DOVA_HOST, arguments, {"XDG_STATE_HOME=" + state, "TERM=xterm"});
    }

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
    Terminal terminal = started();
    terminal.readUntil("> ");
    struct {
        std::string line;
        const char* answer;
    } const rows[] = {
        {"1 + 1", "2\r\n> "},
        {"#'" + std::string(6000, 'x') + "'", "6000\r\n> "},
        {"\t\tprint('tabs')", "tabs\r\n> "},
        {"'ab'\x1b[D\x1b[D\x04", "a\r\n> "},
        {"x = 'ž'", "> "},
        {"x, #x", "ž\t2\r\n> "},
        {"for i = 1, 2 do", ">> "},
        {"print(i)", ">> "},
        {"end", "1\r\n2\r\n> "},
        {"x.y.z",
         "stdin:1: attempt to index a nil value (field 'y')\r\nstack traceback:\r\n"
         "\tstdin:1: in main chunk\r\n> "},
        {"dova.web.JSONArray():insert(9, 1)", "Array index out of bounds for insert\r\n> "},
        {"io.write('x') error('y', 0)",
         "x\r\ny\r\nstack traceback:\r\n\t[C]: in function 'error'\r\n"
         "\tstdin:1: in main chunk\r\n> "},
        {"dova.web.JSONArray.fromJSON('[1]')", "dova.web.JSONArray (Length: 1)\r\n> "},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(entered(terminal, row.line), row.answer) << row.line;
    }
    terminal.type("\x04");
    EXPECT_EQ(terminal.wait(), 0);
}

TEST_F(DovaHostPromptTest, CompletesNamesOfTheHostAndOfScripts) {
    Terminal terminal = started();
    terminal.readUntil("> ");
    entered(terminal, "longName = {inside = 42}");
    EXPECT_EQ(entered(terminal, "longN\t.ins\t"), "42\r\n> ");
    EXPECT_EQ(entered(terminal, "a = dova.web.JSONA\t()"), "> ");
    EXPECT_EQ(entered(terminal, "a:isEm\t(), a.Len\t"), "true\t0\r\n> ");
    terminal.type("dova.web.\t\t");
    EXPECT_THAT(terminal.readUntil("resetKORVIDOnlineFlag"), HasSubstr("JSONValue"));
}

TEST_F(DovaHostPromptTest, CtrlCEndsTheScriptOrTheEntryButNotTheProgram) {
    Terminal terminal = started({"-i", "-e", "print 'ready'"});
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
        Terminal terminal = started();
        terminal.readUntil("> ");
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
    Terminal terminal = started();
    terminal.readUntil("> ");
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
        Terminal one = started(), other = started();
        one.readUntil("> ");
        other.readUntil("> ");
        entered(one, "a = 'of one'");
        entered(other, "b = 'of the other'");
        entered(one, "c = 3");
        other.type("\x04");
        EXPECT_EQ(other.wait(), 0);
    }  // the first is killed
    Terminal terminal = started();
    terminal.readUntil("> ");
    for (const char* line : {"c = 3", "b = 'of the other'", "a = 'of one'"}) {
        terminal.type("\x1b[A");
        terminal.readUntil(line);
    }
}

TEST_F(DovaHostPromptTest, SaysThatTheHistoryCannotBeKeptAndGoesOn) {
    folder.write("state", "no folder");
    Terminal terminal = started();
    terminal.readUntil("> ");
    terminal.type("x = 1\r");
    terminal.readUntil("dova-host: cannot keep the history in " + state);
    terminal.readUntil("> ");
    terminal.type("\x04");
    EXPECT_EQ(terminal.wait(), 0);
}

}  // namespace DOVA::test
