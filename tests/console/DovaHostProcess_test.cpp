#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "DovaHost.h"
#include "support/TemporaryFolder.h"

namespace DOVA::test {

using testing::HasSubstr;
using testing::StartsWith;

class DovaHostProcessTest : public testing::Test {
protected:
    Ending run(const std::vector<std::string>& arguments, const std::string& input = {},
               const std::string& locale = "C.UTF-8") const {
        return runDovaHost(folder / "", arguments, input, locale);
    }

    const TemporaryFolder folder;
};

TEST_F(DovaHostProcessTest, RunsTextsAScriptAndStandardInput) {
    folder.write("a.lua", "#!/usr/bin/env dova-host\nprint(arg[0], arg[1], ...)");
    folder.write("-b.lua", "print 'b'");
    struct {
        std::vector<std::string> arguments;
        const char* output;
        const char* input = "print 'not read'";
    } const rows[] = {
        {{"-e", "x = 1", "-e", "print(x)"}, "1\n"},
        {{"a.lua", "-e", "--help"}, "a.lua\t-e\t-e\t--help\n"},
        {{"-e", "x = 1", "a.lua"}, "a.lua\tnil\n"},
        {{"--", "-b.lua"}, "b\n"},
        {{}, "dova-host\n", "print(arg[0])"},
        {{"-", "x"}, "-\tx\tx\n", "print(arg[0], arg[1], ...)"},
        {{"-", "x"},
         "x\tstdin:2: \n",
         "\xef\xbb\xbf#!/usr/bin/env dova-host\nprint(..., select(2, pcall(error, '', 2)))"},
        {{"-i"}, "3\n1\n2\n", "1 + 2\nfor i = 1, 2 do\nprint(i)\nend\n"},
        {{"-e", "print 'e'", "-i"}, "e\n3\n", "1 + 2"},
        {{"--no-module", "-e", "print(dova) host.loadModule() print(dova)"},
         "nil\nnamespace dova\n"},
        {{"-e", "dova.init() print(1) dova.web.init() io.write('2\\n') dova.init()"},
         "Initializing dova module.\n1\nInitializing dova.web module.\n2\n"
         "Initializing dova module.\n"},
        {{"-e",
          "print(dova.web.KORVIDOnlineFlag(), dova.web.KORVIDOnlineFlag(true), "
          "dova.web.KORVIDOnlineFlag())"},
         "false\tfalse\ttrue\n"},
        {{"-e",
          "a = dova.web.JSONArray() host.unloadModule() host.unloadModule() "
          "a:append(1) print(dova, a.Length)"},
         "nil\t1\n"},
        {{"-e", "print(1.5, string.format('%.1f', 2.5))"}, "1.5\t2.5\n"},
    };
    for (const auto& row : rows) {
        const Ending result = run(row.arguments, row.input);
        EXPECT_EQ(result.output, row.output);
        EXPECT_EQ(result.errors, "") << row.output;
        EXPECT_EQ(result.exitCode, 0) << row.output;
    }
}

TEST_F(DovaHostProcessTest, EndsABadRunWithItsReason) {
    folder.write("bad.lua", "local x = 1\n\nerror 'text'");
    folder.write("typo.lua", "x x");
    struct {
        std::vector<std::string> arguments;
        int exitCode;
        const char* errors;
        bool isOneLine;
    } const rows[] = {
        {{"bad.lua"}, 1, "dova-host: bad.lua:3: text\nstack traceback:\n", false},
        {{"typo.lua"}, 1, "dova-host: typo.lua:1: syntax error near 'x'\n", true},
        {{"none.lua"}, 1, "dova-host: cannot open none.lua", true},
        {{"."}, 1, "dova-host: cannot read .", true},
        {{"-i", "none.lua"}, 1, "dova-host: cannot open none.lua", true},
        {{"--bogus"}, 2, "dova-host: there is no option --bogus\n", true},
        {{"-x", "bad.lua"}, 2, "dova-host: there is no option -x\n", true},
        {{"-e"}, 2, "dova-host: -e", true},
        {{"--port", "1"}, 2, "dova-host: --port requires --serve\n", true},
        {{"--serve", "--port", "x"}, 2, "dova-host: ", true},
        {{"--serve", "--bind", "0.0.0.0"}, 2, "dova-host: --bind 0.0.0.0 opens", true},
        {{"-e", "os.exit(9)"}, 9, "", true},
        {{"-e", "host.loadModule()"}, 1, "dova-host: (command line):1: the module was", false},
        {{"--no-module", "-e", "host.loadModule('/none.so')"},
         1,
         "dova-host: (command line):1: cannot load the module: /none.so",
         false},
        {{"--serve", "-e", "error 'x'"}, 1, "dova-host: (command line):1: x\n", false},
        {{"--serve", "-e", "os.exit(6)"}, 6, "", true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.errors);
        const Ending result = run(row.arguments);
        EXPECT_THAT(result.errors, StartsWith(row.errors));
        EXPECT_EQ(result.exitCode, row.exitCode);
        EXPECT_TRUE(!row.isOneLine || result.errors.find('\n') + 1 == result.errors.size());
    }
    EXPECT_THAT(run({"--help"}).output, HasSubstr("[SCRIPT [ARGS...]]"));
}

TEST_F(DovaHostProcessTest, SaysThatItsOutputWentNowhere) {
    const std::string command =
        "'" DOVA_HOST "' -e 'print(1)' >/dev/full 2>'" + folder / "errors" + "'";
    EXPECT_EQ(WEXITSTATUS(std::system(command.c_str())), 1);
    EXPECT_EQ(folder.read("errors"), "dova-host: cannot write to standard output\n");
}

/// Nested 30,000 times a value ended the process when it was written, 200,000 times when it was
/// freed. It may have as many levels as the parser takes, by whichever edits they come.
TEST_F(DovaHostProcessTest, EditsNestNoDeeperThanTheParser) {
    folder.write("nest.lua", R"(
        web = dova.web
        local function wrap(new, add)
            local value = new()
            for wraps = 1, 40000 do
                local outer = new()
                add(outer, value)
                if outer.Length == 0 then return value, wraps end
                value = outer
            end
        end
        local function append(outer, value) outer:append(value) end
        local function read(value) return web.JSONArray.fromJSON(value:toJSON('Compact')).Length end
        for name, add in pairs({
            append = append,
            JSONValue = function(outer, value) outer:append(web.JSONValue(value)) end,
            prepend = function(outer, value) outer:prepend(value) end,
            insert = function(outer, value) outer:insert(0, value) end,
            copies = function(outer, value) outer:append(web.JSONArray(value)) end,
            text = function(outer, value) outer:appendFromJSON(value:toJSON('Compact')) end,
            object = function(outer, value)
                local object = web.JSONObject()
                object:insert('k', value)
                if object.Length == 1 then outer:append(object) end
            end,
        }) do
            local deepest, wraps = wrap(web.JSONArray, add)
            print('', name, wraps, read(deepest))
        end
        local deepest = wrap(web.JSONObject, function(outer, value) outer:insert('k', value) end)
        local object = dova.web.JSONObject()
        object:insert('k', 'kept')
        object:insert('k', deepest)
        object:insertFromJSON('k', deepest:toJSON())
        print('', object:value('k'))
        -- What is taken out may be put in again.
        local inner = deepest:value('k')
        inner:insert('l', 1)
        deepest:insert('k', inner)
        print(deepest:value('k'):value('l'))
        local array = web.JSONArray.fromJSON('[' .. ('[1],'):rep(1000) .. '2]')
        local list = web.JSONArray()
        list:append(array)
        list:replace(0, array)
        print(list:value(0).Length)
    )");
    std::string refused = "too deeply nested document\t";
    const Ending result = run({"nest.lua"});
    for (const char* row :
         {"append\t1024\t1\n", "JSONValue\t1024\t1\n", "prepend\t1024\t1\n", "insert\t1024\t1\n",
          "copies\t1024\t1\n", "text\t1024\t1\n", "object\t512\t1\n"}) {
        EXPECT_THAT(result.output, HasSubstr(refused + row));
    }
    EXPECT_THAT(result.output,
                testing::EndsWith("too deeply nested documenttoo deeply nested document" + refused +
                                  "kept\n1\n1001\n"))
        << result.errors;
}

/// What a text is made of is the same whatever the locale; a C locale has no letters beyond ASCII
/// for JSON, which goes through the locale's encoding.
TEST_F(DovaHostProcessTest, SpeaksTheTextsOfItsLocale) {
    const std::string script =
        "print('ž', dova.web.JSONArray.fromJSON('[\"ž\"]'):toJSON('Compact'))";
    EXPECT_EQ(run({"-e", script}).output, "ž\t[\"ž\"]\n");
    EXPECT_THAT(run({"-e", script}, {}, "C").output, StartsWith("ž\t["));
}

}  // namespace DOVA::test
