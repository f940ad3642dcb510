#include "console/ScriptConsole.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <string>

#include "Lab.h"
#include "host/Console.h"
#include "support/JsonRows.h"
#include "support/TemporaryFolder.h"

namespace DOVA::console {

using test::Lab;
using testing::HasSubstr;

/// A console on the lab, whose output is kept.
class ScriptConsoleTest : public testing::Test {
protected:
    ScriptConsoleTest() {
        host::redirectConsole([this](std::string_view text) { m_printed += text; });
    }
    ~ScriptConsoleTest() override { host::redirectConsole({}); }

    /// What the call prints, and how it ends if not well.
    template <class Call>
    std::string outcome(const Call& call) {
        m_printed.clear();
        try {
            call();
        } catch (const ScriptError& error) {
            m_printed += std::string("! ") + error.what();
        } catch (const ScriptExit& exit) {
            m_printed += "exit " + std::to_string(exit.exitCode);
        }
        return m_printed;
    }
    std::string run(const std::string& text) {
        return outcome([&] { console.run(text, "script"); });
    }
    std::string enter(const std::string& text) {
        return outcome([&] { console.enter(text); });
    }
    std::string complete(const std::string& line) {
        std::string candidates;
        for (const std::string& candidate : console.complete(line)) {
            candidates += (candidates.empty() ? "" : " ") + candidate;
        }
        return candidates;
    }
    std::string isIncomplete(const std::string& text) {
        return console.isIncomplete(text) ? "incomplete" : "whole";
    }

    Lab lab;
    ScriptConsole console;

private:
    std::string m_printed;
};

/// What is written to the console in scripts.json, and what comes of it, in groups for a console
/// each.
class ScriptRows : public ScriptConsoleTest, public testing::WithParamInterface<test::JsonRow> {};

TEST_P(ScriptRows, ComeOutAsShown) {
    const std::string way = GetParam().text("by");
    console.run(GetParam().text("before"), "script");
    for (const QJsonValue row : GetParam()["rows"].toArray()) {
        const std::string written = test::text(row[0]);
        EXPECT_EQ(way == "run"        ? run(written)
                  : way == "complete" ? complete(written)
                  : way == "enter"    ? enter(written)
                                      : isIncomplete(written),
                  test::text(row[1]))
            << written;
    }
}

INSTANTIATE_TEST_SUITE_P(Scripts, ScriptRows, testing::ValuesIn(test::readRows(SCRIPTS)),
                         test::RowName());

TEST_F(ScriptConsoleTest, FollowsNamespacesThatComeAndGo) {
    EXPECT_EQ(enter("lab.late"), "! stdin:1: lab has no member \"late\"");
    Lab::addInner("late");
    EXPECT_EQ(enter("lab.late"), "namespace lab.late\n");
    run("T, t, kept, nothing = lab.inner.Tally, lab.inner.Tally(5), lab, lab.nothing");
    Lab::remove("lab.inner");
    EXPECT_EQ(enter("lab.inner"), "! stdin:1: lab has no member \"inner\"");
    EXPECT_EQ(enter("t:add(1) return t.Total, t == t"), "6\ttrue\n") << "an instance lives on";
    EXPECT_THAT(enter("t:twin()"), HasSubstr("[ribo:UnknownClass]"));
    Lab::remove("lab");
    EXPECT_EQ(enter("lab"), "nil\n");
    EXPECT_EQ(enter("kept.describe"), "! stdin:1: the namespace lab is no longer there");
    EXPECT_EQ(enter("nothing()"), "! stdin:1: the function lab.nothing is no longer there");
    const Lab again;
    EXPECT_EQ(enter("lab.inner.Tally == T"), "false\n")
        << "a class that was added anew is another one";
    EXPECT_EQ(enter("kept.inner.Tally(2).Total, nothing()"), "2\n");
    run("setmetatable(_G, {__index = function(_, name) return name .. '?' end})");
    EXPECT_EQ(enter("lab, other"), "namespace lab\tother?\n");
    run("setmetatable(_G, nil)");
    EXPECT_EQ(enter("lab, other"), "namespace lab\tnil\n");
    run("lab = 1");
    EXPECT_EQ(enter("lab"), "1\n") << "a script's own globals come first";
}

TEST_F(ScriptConsoleTest, FreesWhatScriptsMakeAndOutlivesTheHostsNamespaces) {
    {
        ScriptConsole other;
        other.run("for i = 1, 1000 do local t = lab.inner.Tally(i) end collectgarbage()", "script");
        EXPECT_EQ(test::Counted::s_alive, 0);
        other.run(R"(local text = ('x'):rep(100000)
            for i = 1, 1000 do local t = lab.inner.Tally(i) lab.make(text) end)",
                  "script");
        EXPECT_LT(test::Counted::s_alive, 100) << "what the host may keep of texts is counted";
        other.run("collectgarbage()", "script");
        other.run(R"(do local t <close> = lab.inner.Tally(1) end
            kept = {lab.inner.Tally(1), lab.undescribed(), lab.inner.Tally(2)}
            -- Late finalisers find what they kept, or are told that it is gone.
            local class = lab.inner.Tally
            setmetatable(kept, {__gc = function(all)
                print(pcall(all[1].add, all[1], 1))
                print(pcall(class, 1))
            end}))",
                  "script");
        EXPECT_EQ(test::Counted::s_alive, 3);
        Lab::remove("lab");
    }
    EXPECT_EQ(test::Counted::s_alive, 0);
}

TEST_F(ScriptConsoleTest, TracesAFailureBack) {
    try {
        console.run("local function f() lab.fail('x') end\nf()", "script");
        FAIL();
    } catch (const ScriptError& error) {
        EXPECT_THAT(error.traceback(), testing::StartsWith("stack traceback:\n"));
        EXPECT_THAT(error.traceback(), HasSubstr("script:2: in main chunk"));
    }
}

TEST_F(ScriptConsoleTest, RunsFilesWithTheirArguments) {
    const test::TemporaryFolder folder;
    console.setArguments("a.lua", {"x", "--y"});
    const auto file = folder.write("a.lua", "#!/usr/bin/env dova-host\nprint(arg[0], #arg, ...)");
    EXPECT_EQ(outcome([&] { console.runFile(file); }), "a.lua\t2\tx\t--y\n");
    EXPECT_THAT(outcome([&] { console.runFile(folder / "none.lua"); }),
                testing::MatchesRegex("! cannot open .*none.lua: No such file or directory"));
    EXPECT_THAT(outcome([&] { console.runFile(folder / ""); }), HasSubstr("! cannot read "));
}

TEST_F(ScriptConsoleTest, CompletesNothingWithWhatThereIs) {
    EXPECT_THAT(console.complete(""), testing::IsSupersetOf({"and", "lab", "print", "string"}));
}

TEST_F(ScriptConsoleTest, LeavesTheSignalToTheProgramBetweenScripts) {
    static int s_caught = 0;
    const auto before = std::signal(SIGINT, [](int) { ++s_caught; });
    run("print 'nothing'");
    std::raise(SIGINT);
    EXPECT_EQ(s_caught, 1);
    EXPECT_EQ(run("print 'later'"), "later\n");
    std::signal(SIGINT, before);
}

}  // namespace DOVA::console
