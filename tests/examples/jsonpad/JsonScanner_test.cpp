#include "jsonpad/JsonScanner.h"

#include <gmock/gmock.h>

#include <string>

#include "jsonpad/JsonError.h"

namespace {

using jsonpad::JsonError;
using jsonpad::JsonKind;
using jsonpad::JsonScanner;

/// "key:kind:value" of each member, or the error.
std::string scan(const std::string& text) {
    std::string result;
    try {
        for (const auto& member : JsonScanner::scan(text)) {
            result += std::string(member.key) + "SBN0["[static_cast<int>(member.kind)] +
                      std::string(member.value) + ";";
        }
    } catch (const JsonError& error) {
        return error.what();
    }
    return result;
}

struct Row {
    const char* name;
    std::string text;
    const char* expected;
};

constexpr const char* tooEarly = "line 1, column 1: the text ends too early";
constexpr const char* needsObject =
    "line 1, column 1: the file must hold an object, so \"{\" is expected here";

const Row rows[] = {
    {"empty", "", tooEarly},
    {"onlyMark", "\xEF\xBB\xBF", tooEarly},
    {"space", " \n", "line 2, column 1: the text ends too early"},
    {"noMembers", "{}", ""},
    {"noMembersSpaced", "\r\n{ \t}\n", ""},
    {"mark", "\xEF\xBB\xBF{\"a\":1}", "\"a\"B1;"},
    {"kinds", R"({"s":"","n":-0.5e+3,"t":true,"f":false,"0":null,"a":[ ],"o":{"x":[1,{}]}})",
     R"("s"S"";"n"B-0.5e+3;"t"Ntrue;"f"Nfalse;"0"0null;"a"[[ ];"o"[{"x":[1,{}]};)"},
    {"equalKeys", R"({"a":1,"a":2})", R"("a"B1;"a"B2;)"},
    {"spaceAround", "{ \"a\" :\t1 ,\r\n\"b\": \"x y\" }", "\"a\"B1;\"b\"S\"x y\";"},
    {"escapes", R"({"\"\\\/\b\f\n\r\t\u00E9\uD800":"\\"})",
     R"("\"\\\/\b\f\n\r\t\u00E9\uD800"S"\\";)"},
    {"utf8", "{\"\xC3\xA9\":\"\xF0\x9F\x98\x80\"}", "\"\xC3\xA9\"S\"\xF0\x9F\x98\x80\";"},
    {"deleteCharacter", "{\"a\":\"\x7F\"}", "\"a\"S\"\x7F\";"},
    {"array", "[1]", needsObject},
    {"scalar", "1", needsObject},
    {"utf16", std::string("\xFF\xFE{\0}\0", 6), needsObject},
    {"secondMark", "\xEF\xBB\xBF\xEF\xBB\xBF{}", needsObject},
    {"trailing", "{}\n{}", "line 2, column 1: nothing may follow the object's closing brace"},
    {"trailingZero", std::string("{}\0", 3),
     "line 1, column 3: nothing may follow the object's closing brace"},
    {"trailingComma", "{\"a\":1,}", "line 1, column 8: a key in double quotes is expected here"},
    {"leadingComma", "{,}", "line 1, column 2: a key in double quotes is expected here"},
    {"singleQuotes", "{'a':1}", "line 1, column 2: a key in double quotes is expected here"},
    {"noColon", "{\"a\" 1}", "line 1, column 6: \":\" is expected after a key"},
    {"noValue", "{\"a\":}", "line 1, column 6: a value is expected here"},
    {"noComma", "{\"a\":1 \"b\":2}", "line 1, column 8: \",\" or \"}\" is expected after a member"},
    {"wrongBracket", "{\"a\":[1}}", "line 1, column 8: \",\" or \"]\" is expected after an item"},
    {"arrayTrailingComma", "{\"a\":[1,]}", "line 1, column 9: a value is expected here"},
    {"comment", "{/**/}", "line 1, column 2: a key in double quotes is expected here"},
    {"wordTooShort", "{\"a\":tru}", "line 1, column 6: a value is expected here"},
    {"wordTooLong", "{\"a\":nulls}",
     "line 1, column 10: \",\" or \"}\" is expected after a member"},
    {"wordInCapitals", "{\"a\":True}", "line 1, column 6: a value is expected here"},
    {"notANumber", "{\"a\":NaN}", "line 1, column 6: a value is expected here"},
    {"leadingZero", "{\"a\":01}", "line 1, column 7: \",\" or \"}\" is expected after a member"},
    {"plusSign", "{\"a\":+1}", "line 1, column 6: a value is expected here"},
    {"hexadecimal", "{\"a\":0x1}", "line 1, column 7: \",\" or \"}\" is expected after a member"},
    {"unknownEscape", "{\"a\":\"\\x\"}",
     "line 1, column 8: a backslash in a text must begin one of "
     "\\\" \\\\ \\/ \\b \\f \\n \\r \\t \\uXXXX"},
    {"escapedZeroByte", std::string("{\"\\\0\":1}", 8),
     "line 1, column 4: a backslash in a text must begin one of "
     "\\\" \\\\ \\/ \\b \\f \\n \\r \\t \\uXXXX"},
    {"shortEscape", "{\"a\":\"\\u12g4\"}",
     "line 1, column 11: \\u in a text must be followed by four hexadecimal digits"},
    {"lineEndInText", "{\"a\":\"x\ny\"}",
     "line 1, column 8: a control character in a text must be written as an escape such as "
     "\\n or \\u0000"},
    {"zeroByteInText", std::string("{\"\0\":1}", 7),
     "line 1, column 3: a control character in a text must be written as an escape such as "
     "\\n or \\u0000"},
    {"openText", "{\"a", "line 1, column 4: the text ends too early"},
    {"strayContinuation", "{\"\x80\":1}", "line 1, column 3: the text is not valid UTF-8"},
    {"overlong", "{\"\xC0\x80\":1}", "line 1, column 3: the text is not valid UTF-8"},
    {"encodedSurrogate", "{\"\xED\xA0\x80\":1}", "line 1, column 3: the text is not valid UTF-8"},
    {"beyondUnicode", "{\"\xF4\x90\x80\x80\":1}", "line 1, column 3: the text is not valid UTF-8"},
    {"cutCharacter", "{\"\xE2\x82\"", "line 1, column 3: the text is not valid UTF-8"},
    {"latin1", "{\"a\":\"caf\xE9\"}", "line 1, column 10: the text is not valid UTF-8"},
    {"columnCountsCharacters", "\xEF\xBB\xBF{\"\xC3\xA9\xF0\x9F\x98\x80\"}",
     "line 1, column 6: \":\" is expected after a key"},
    {"lineEnds", "{\n\r\n\r\"a\":\r\n  ?}", "line 5, column 3: a value is expected here"},
};

class Scanner : public testing::TestWithParam<Row> {};

TEST_P(Scanner, FindsMembersOrSaysWhereTheFaultIs) {
    EXPECT_EQ(scan(GetParam().text), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(All, Scanner, testing::ValuesIn(rows),
                         [](const auto& row) { return row.param.name; });

TEST(Scanner, RefusesEveryTruncation) {
    const std::string text =
        "\xEF\xBB\xBF{\"a\\u00e9\": [1.5e-3, {\"b\": null}],\r\n\"\xF0\x9F\x98\x80\": \"x\\n\", "
        "\"t\": true}";
    ASSERT_EQ(scan(text).substr(0, 4), "\"a\\u");
    for (std::size_t length = 0; length < text.size(); ++length) {
        // Copied, so that a read past the end is one that a sanitizer sees.
        EXPECT_EQ(scan(std::string(text, 0, length)).substr(0, 5), "line ") << length;
    }
}

std::string nested(std::size_t arrays, const char* open, const char* close) {
    std::string result = "{\"a\":";
    for (std::size_t level = 0; level < arrays; ++level) {
        result += open;
    }
    for (std::size_t level = 0; level < arrays; ++level) {
        result += close;
    }
    return result + "}";
}

TEST(Scanner, LimitsDepth) {
    EXPECT_NO_THROW(JsonScanner::scan(nested(JsonScanner::depthLimit - 1, "[", "]")));
    EXPECT_THROW(JsonScanner::scan(nested(JsonScanner::depthLimit, "[", "]")), JsonError);
    EXPECT_THROW(JsonScanner::scan(nested(1000000, "{\"a\":", "}")), JsonError);
}

TEST(Scanner, DepthCountsOnlyWhatIsOpen) {
    std::string text = "{\"a\":[0";
    for (std::size_t item = 0; item < 2 * JsonScanner::depthLimit; ++item) {
        text += ",[]";
    }
    EXPECT_NO_THROW(JsonScanner::scan(text + "]}"));
}

TEST(Scanner, NumbersAreThoseOfTheGrammarAndNoOthers) {
    const testing::Matcher<const std::string&> grammar =
        testing::MatchesRegex("-?(0|[1-9][0-9]*)(\\.[0-9]+)?([eE][+-]?[0-9]+)?");
    const std::string alphabet = "-0.2eE+";
    std::vector<std::string> level{""};
    for (int length = 0; length < 5; ++length) {
        std::vector<std::string> next;
        for (const std::string& text : level) {
            for (const char letter : alphabet) {
                next.push_back(text + letter);
                const std::string& candidate = next.back();
                ASSERT_EQ(JsonScanner::numberLength(candidate) == candidate.size(),
                          grammar.Matches(candidate))
                    << candidate;
            }
        }
        level = std::move(next);
    }
}

}  // namespace
