#include "console/ScriptConsole.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <string>

#include "Lab.h"
#include "host/Console.h"
#include "support/TemporaryFolder.h"

namespace DOVA::console {

using namespace std::string_literals;
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

    Lab lab;
    ScriptConsole console;

private:
    std::string m_printed;
};

TEST_F(ScriptConsoleTest, CarriesValuesToTheHostAndBack) {
    console.run("describe, make = lab.describe, lab.make", "script");
    struct {
        const char* expression;
        std::string printed;
    } const rows[] = {
        {"describe(nil)", "empty 0x0 numeric"},
        {"describe(true)", "logical true"},
        {"describe(1)", "1"},
        {"describe(2^53)", "9.00719925474099e+15"},
        {"describe('')", "char 0 "},
        {"describe('a\\0ž\\u{1F600}')", "char 5 a\0ž😀"s},
        {"describe('\\xED\\xA0\\x80')", "char 1 \xED\xA0\x80"},
        {"describe('a\\xFF\\xC3')", "char 3 a\uFFFD\uFFFD"},
        {"describe({})", "cell"},
        {"describe({1, {true}, 'x'})", "cell[1][cell[logical true]][char 1 x]"},
        {"describe({b = 1, a = {c = false}})", "struct[a struct[c logical false]][b 1]"},
        {"describe({1, x = 2})",
         "! stdin:1: a table for the host has the keys 1 to n, or strings for keys"},
        {"describe({1, nil, 3, x = 2})",
         "! stdin:1: a table for the host has the keys 1 to n, or strings for keys"},
        {"(function() local t = {} t[1] = t describe(t) end)()",
         "! stdin:1: a table for the host has more than 100 levels, or holds itself"},
        {"describe(print)", "! stdin:1: a function cannot be given to the host"},
        {"describe({lab})", "! stdin:1: namespace lab cannot be given to the host"},
        {"describe(lab.inner.Tally)", "! stdin:1: lab.inner.Tally cannot be given to the host"},
        {"describe({lab.inner.Tally(3)})", "cell[lab.inner.Tally (Total: 3, Name: )]"},
        {"make('minus zero')", "-0.0"},
        {"make('largest whole')", "9007199254740992"},
        {"make('beyond')", "9.007199254741e+15"},
        {"make('infinity')", "inf"},
        {"make('uint64')", "9223372036854775807"},
        {"make('uint64 beyond')", "1.844674407371e+19"},
        {"make('surrogate') == 'a\\xED\\xA0\\x80z'", "true"},
        {"#make('no text')", "0"},
        {"table.concat(make('numbers'), ' ')", "1 2.5 -0.0"},
        {"make('logicals')[2]", "false"},
        {"make('struct').a", "-7"},
        {"make('deep cells')", "! stdin:1: the value has more than 100 levels"},
        {"lab.undescribed()", "lab.Undescribed"},
        {"lab.nothing()", ""},
    };
    for (const auto& row : rows) {
        const bool isOutput = !row.printed.empty() && row.printed[0] != '!';
        EXPECT_EQ(enter(row.expression), row.printed + (isOutput ? "\n" : "")) << row.expression;
    }
}

TEST_F(ScriptConsoleTest, MakesClassesOfWhatTheHostLists) {
    console.run("T = lab.inner.Tally  t = T(1)  m = lab.inner.Marker()", "script");
    struct {
        const char* text;
        const char* printed;
    } const rows[] = {
        {"t:add(2) t:add(t) return t.Total", "6\n"},
        {"t.Name = 'ž' return t.Name", "ž\n"},
        {"t", "lab.inner.Tally (Total: 6, Name: ž)\n"},
        {"u = t u:add(1) return t.Total", "7\n"},
        {"u = T(t) u:add(1) return t.Total, u.Total", "7\t8\n"},
        {"u = t:twin() return u == t, u ~= t, rawequal(u, t)", "true\tfalse\tfalse\n"},
        {"u:add(1) return u == t", "false\n"},
        {"t == m, m == t, t == 7, t == io.stdout, t == T, t == lab",
         "false\tfalse\tfalse\tfalse\tfalse\tfalse\n"},
        {"T, T == lab.inner.Tally, lab", "lab.inner.Tally\ttrue\tnamespace lab\n"},
        {"T.of(4) == T(4), T.Zero.Total, t.Zero == T()", "true\t0\ttrue\n"},
        {"T.Zero:add(1) return T.Zero.Total", "0\n"},
        {"t.total", "! stdin:1: lab.inner.Tally has no member \"total\""},
        {"t[1]", "! stdin:1: lab.inner.Tally has no member \"1\""},
        {"t.secret", "! stdin:1: lab.inner.Tally has no member \"secret\""},
        {"t.selfCopyingProperty",
         "! stdin:1: lab.inner.Tally has no member \"selfCopyingProperty\""},
        {"t.selfCopyingProperty = 1",
         "! stdin:1: lab.inner.Tally has no property \"selfCopyingProperty\""},
        {"T.add", "! stdin:1: lab.inner.Tally has no member \"add\""},
        {"t.Total = 1", "! stdin:1: lab.inner.Tally: the property \"Total\" can only be read"},
        {"T.Zero = 1", "! stdin:1: lab.inner.Tally: the property \"Zero\" can only be read"},
        {"t.add = 1", "! stdin:1: lab.inner.Tally: \"add\" is a method"},
        {"t.foo = 1", "! stdin:1: lab.inner.Tally has no property \"foo\""},
        {"lab.foo = 1", "! stdin:1: lab is a namespace: scripts add nothing to it"},
        {"lab.secret", "! stdin:1: lab has no member \"secret\""},
        {"lab.inner.Unseen", "! stdin:1: lab.inner has no member \"Unseen\""},
        {"getmetatable(t), getmetatable(T), getmetatable(lab)", "false\tfalse\tfalse\n"},
        {"pcall(t.add, t, {})",
         "false\tstdin:1: \"add\" does not take (lab.inner.Tally, 0x0 cell). It takes "
         "(lab.inner.Tally, double scalar) or (lab.inner.Tally, lab.inner.Tally). "
         "[ribo:NoMatchingSignature]\n"},
        {"debug.getmetatable(t).__index(m, 'Total')", "! stdin:1: no instance of lab.inner.Tally"},
        {"debug.getmetatable(t).__index(1, 'Total')", "! stdin:1: no instance of lab.inner.Tally"},
        {"do local c <close> = T() d = c end return d.Total", "! stdin:1: the value was closed"},
        {"lab.fail('why')", "! stdin:1: why [lab:Failed]"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(enter(row.text), row.printed) << row.text;
    }
    EXPECT_THAT(enter("t:add('x')"), HasSubstr("\"add\" does not take (lab.inner.Tally, string)"));
    EXPECT_THAT(enter("t.Name = 1"), HasSubstr("[ribo:WrongPropertyType]"));
    EXPECT_THAT(enter("lab.exhaust()"), HasSubstr("! stdin:1: "));
}

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

TEST_F(ScriptConsoleTest, SaysWhereAScriptFailedAndEndsItWhenItAsks) {
    struct {
        const char* text;
        const char* outcome;
    } const rows[] = {
        {"print(1)\nerror('why')", "1\n! script:2: why"},
        {"error('why', 0)", "! why"},
        {"error()", "! (the error is a nil value)"},
        {"error({})", "! (the error is a table value)"},
        {"error(setmetatable({}, {__tostring = function() return 'own' end}))", "! own"},
        {"x x", "! script:1: syntax error near 'x'"},
        {"\x1BLua", "! attempt to load a binary chunk (mode is 't')"},
        {"os.exit()", "exit 0"},
        {"os.exit(false)", "exit 1"},
        {"print(pcall(os.exit, 7)) print 'more'", "exit 7"},
        {"coroutine.wrap(function() pcall(coroutine.wrap(os.exit), 8) print 'more' end)()",
         "exit 8"},
        {"local t <close> = lab.inner.Tally() os.exit(true, true)", "exit 0"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(run(row.text), row.outcome) << row.text;
    }
    EXPECT_THAT(run("error(setmetatable({}, {__tostring = error}))"), HasSubstr("! "));
    EXPECT_EQ(run("print 'still there'"), "still there\n");
    try {
        console.run("local function f() lab.fail('x') end\nf()", "script");
        FAIL();
    } catch (const ScriptError& error) {
        EXPECT_THAT(error.traceback(), testing::StartsWith("stack traceback:\n"));
        EXPECT_THAT(error.traceback(), HasSubstr("script:2: in main chunk"));
    }
}

TEST_F(ScriptConsoleTest, SendsWhatScriptsWriteWhereTheyPrint) {
    EXPECT_EQ(run("print(1) io.write('a', 2, 0.5, '\\0') io.stdout:write('b') print(io.output() == "
                  "io.stdout:write('c\\n')) print(io.stdout:close())"),
              "1\na20.5\0bc\ntrue\nnil\tcannot close standard file\n"s);
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

TEST_F(ScriptConsoleTest, KnowsWhatIsIncomplete) {
    for (const char* text : {"for i = 1, 2 do", "x = ", "f(", "if a then b()", "[[", "return {"}) {
        EXPECT_TRUE(console.isIncomplete(text)) << text;
    }
    for (const char* text : {"", "1 + 1", "x = 1", "x x", "for i = 1 do", "end", "x = )"}) {
        EXPECT_FALSE(console.isIncomplete(text)) << text;
    }
}

TEST_F(ScriptConsoleTest, CompletesWithoutRunningAnything) {
    console.run(R"(t = lab.inner.Tally(1)
        list = {alpha = {beta = 1}, ['no name'] = 1, fn = print}
        trap = setmetatable({}, {__index = function() error('ran') end})
        object = setmetatable({own = 1}, {__index = {method = print, value = 1}})
        closed = lab.inner.Tally(1)
        do local c <close> = closed end)",
                "script");
    struct {
        const char* line;
        std::vector<std::string> candidates;
    } const rows[] = {
        {"la", {"lab"}},
        {"print(wh", {"while"}},
        {"x = lab.",
         {"lab.describe", "lab.exhaust", "lab.fail", "lab.inner", "lab.interrupt", "lab.make",
          "lab.nothing", "lab.undescribed"}},
        {"lab.inner.", {"lab.inner.Marker", "lab.inner.Tally"}},
        {"lab.inner.Tally.", {"lab.inner.Tally.Zero", "lab.inner.Tally.of"}},
        {"t.", {"t.Name", "t.Total", "t.Zero"}},
        {"t:", {"t:add", "t:eq", "t:isequal", "t:isequaln", "t:twin"}},
        {"t.Total.", {}},
        {"list.", {"list.alpha", "list.fn"}},
        {"list:", {"list:fn"}},
        {"list.alpha.b", {"list.alpha.beta"}},
        {"trap.x.y", {}},
        {"object:", {"object:method"}},
        {"object.", {"object.method", "object.own", "object.value"}},
        {"closed.", {}},
        {"none.", {}},
        {"lab.none.x", {}},
        {"lab..", {}},
        {"1.", {}},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(console.complete(row.line), row.candidates) << row.line;
    }
    EXPECT_THAT(console.complete(""), testing::IsSupersetOf({"and", "lab", "print", "string"}));
}

TEST_F(ScriptConsoleTest, CtrlCEndsAScriptHoweverItIsWritten) {
    console.run("function spin() lab.interrupt() while true do end end", "script");
    struct {
        const char* script;
        const char* outcome;
    } const rows[] = {
        {"spin()", "! script:1: interrupted!"},
        {"lab.interrupt()", "! script:1: interrupted!"},
        {"return lab.interrupt()", "! interrupted!"},
        // An error that is swallowed does not help against the second signal.
        {"while true do pcall(spin) end", "! script:1: interrupted!"},
        {"while true do coroutine.resume(coroutine.create(spin)) end", "! script:1: interrupted!"},
        {"coroutine.wrap(spin)()", "! script:1: script:1: interrupted!"},
        {"coroutine.wrap(function() coroutine.wrap(lab.interrupt)() while true do end end)()",
         "! script:1: script:1: interrupted!"},
        {"c = coroutine.wrap(function() coroutine.yield() spin() end) c() c()",
         "! script:1: script:1: interrupted!"},
        {"c = coroutine.create(function() local x <close> = setmetatable({}, {__close = spin}) "
         "coroutine.yield() end) coroutine.resume(c) print(coroutine.close(c))",
         "false\tscript:1: interrupted!\n"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(run(row.script), row.outcome) << row.script;
    }
    static int s_caught = 0;
    const auto before = std::signal(SIGINT, [](int) { ++s_caught; });
    run("print 'nothing'");
    std::raise(SIGINT);
    EXPECT_EQ(s_caught, 1) << "between scripts the signal is the program's";
    EXPECT_EQ(run("print 'later'"), "later\n");
    std::signal(SIGINT, before);
}

}  // namespace DOVA::console
