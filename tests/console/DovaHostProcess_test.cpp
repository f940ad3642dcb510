#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "DovaHost.h"
#include "support/JsonRows.h"
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

    static std::string filled(const QJsonValue& value) {
        return value.toString().replace("${tree}", TREE).toStdString();
    }

    const TemporaryFolder folder;
};

/// With runs of the example scripts that these refuse.
TEST_F(DovaHostProcessTest, RunsAndEndsAsEachRowSays) {
    folder.write("a.lua", "#!/usr/bin/env dova-host\nprint(arg[0], arg[1], ...)");
    folder.write("-b.lua", "print 'b'");
    folder.write("bad.lua", "local x = 1\n\nerror 'text'");
    folder.write("typo.lua", "x x");
    folder.write("array.json", "[1]");
    folder.write("bad.json", "{");
    folder.write("object.json", "{}");
    for (const QJsonValue row : readJson(RUNS).array()) {
        std::vector<std::string> arguments;
        for (const QJsonValue argument : row["arguments"].toArray()) {
            arguments.push_back(filled(argument));
        }
        SCOPED_TRACE(testing::PrintToString(arguments));
        const Ending result = run(arguments, text(row["input"], "print 'not read'"));
        const std::string address = row["isServing"].toBool() ? result.output : "";
        EXPECT_EQ(result.output, address + text(row["output"]));
        EXPECT_EQ(address.empty(), !row["isServing"].toBool());
        EXPECT_THAT(result.errors, StartsWith(filled(row["errors"])));
        EXPECT_EQ(result.errors.empty(), filled(row["errors"]).empty());
        const auto lines = std::count(result.errors.begin(), result.errors.end(), '\n');
        EXPECT_EQ(lines > 1, row["isTraced"].toBool());
        EXPECT_EQ(result.exitCode, row["exitCode"].toInt());
    }
    EXPECT_THAT(run({"--help"}).output, HasSubstr("[SCRIPT [ARGS...]]"));
}

TEST_F(DovaHostProcessTest, SaysThatItsOutputWentNowhere) {
    const std::string command =
        "'" DOVA_HOST "' -e 'print(1)' >/dev/full 2>'" + folder / "errors" + "'";
    EXPECT_EQ(WEXITSTATUS(std::system(command.c_str())), 1);
    EXPECT_EQ(folder.read("errors"), "dova-host: cannot write to standard output\n");
}

/// All texts of a script keep their order where they go to one file, though `io.write` is buffered.
TEST_F(DovaHostProcessTest, KeepsTheOrderOfWhatGoesToOneFile) {
    folder.write("order.lua",
                 "io.write('a') dova.init() io.write('b') io.stderr:write('c') "
                 "io.write('d') os.execute('printf e') print('f') io.write('g') "
                 "setmetatable({}, {__gc = function() io.write('i') end}) "
                 "if arg[1] then os.exit(0) end error('h', 0)");
    const std::string call = "cd '" + folder / "" + "' && '" DOVA_HOST "' order.lua ";
    EXPECT_NE(std::system((call + ">out 2>&1").c_str()), 0);
    const std::string before = "aInitializing dova module.\nbcdef\ng";
    EXPECT_THAT(folder.read("out"), StartsWith(before + "dova-host: h\n"));
    EXPECT_EQ(std::system((call + "exit >out 2>&1").c_str()), 0);
    EXPECT_EQ(folder.read("out"), before + "i");
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

/// What edits replaced or removed stayed in memory until the process ended at two gigabytes.
TEST_F(DovaHostProcessTest, EditsWithTextsKeepWhatLivesAndNoMore) {
#if defined(DOVA_ADDRESS_SANITIZER)
    const std::string rounds = "6";
    const std::string small;  // freed memory is kept for a while
#else
    const std::string rounds = "60";
    const std::string small = "true\n";
#endif
    folder.write("grow.lua", "local rounds = " + rounds + R"(
        local text = ('x'):rep(1 << 20)
        local array = dova.web.JSONArray.fromJSON('[null, "kept", 1.5, [1]]')
        array:replace(0, {})
        local object = dova.web.JSONObject.fromJSON('{"kept": "\\u00e9"}')
        for i = 1, rounds do
            array:replace(1, text .. i) array:append(text) array:removeAt(4)
            object:insert('k', text .. i)
        end
        print(array:value(1) == text .. rounds, object:value('k') == text .. rounds)
        array:replace(1, 'kept') object:remove('k')
        print(array:valueType(0), array:toJSON('Compact'), object:toJSON('Compact'))
        for line in io.lines('/proc/self/status') do
            local peak = line:match('VmHWM:%s*(%d+)')
            if peak then print(peak + 0 < 120000 or peak) end
        end
    )");
    EXPECT_THAT(run({"grow.lua"}).output,
                StartsWith("true\ttrue\nUndefinedType\t[null,\"kept\",1.5,[1]]\t"
                           "{\"kept\":\"é\"}\n" +
                           small));
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
