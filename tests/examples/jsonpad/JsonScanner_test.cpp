#include "jsonpad/JsonScanner.h"

#include <gmock/gmock.h>

#include <string>

#include "AllTexts.h"
#include "jsonpad/JsonError.h"
#include "support/RowNames.h"

namespace {

using jsonpad::JsonError;
using jsonpad::JsonScanner;

/// "key:kind:value" of each member, or the error.
std::string scan(const std::string& text) {
    std::string result;
    try {
        for (const auto& member : JsonScanner::scan(text)) {
            result += std::string(member.key) + "SNB0L{["[static_cast<int>(member.kind)] +
                      std::string(member.value) + ";";
        }
    } catch (const JsonError& error) {
        return error.what();
    }
    return result;
}

using DOVA::test::operator<<;

struct Row {
    const char* name;
    std::string text;
    const char* expected;
};

const Row rows[] = {
    {"empty", "", "line 1, column 1: the text ends too early"},
    {"space", " \n", "line 2, column 1: the text ends too early"},
    {"noMembers", "{}", ""},
    {"mark", "\xEF\xBB\xBF{\"a\":1}", "\"a\"N1;"},
    {"kinds", R"({"s":"","n":-0.5e+3,"t":true,"f":false,"0":null,"a":[ ],"o":{"x":[1,{}]}})",
     R"("s"S"";"n"N-0.5e+3;"t"Btrue;"f"Bfalse;"0"0null;"a"L[ ];"o"{{"x":[1,{}]};)"},
    {"listsAndOtherArrays", R"({"a":[1,"]",null],"b":[[]],"c":[1,{}],"d":[{},1]})",
     R"("a"L[1,"]",null];"b"[[[]];"c"[[1,{}];"d"[[{},1];)"},
    {"escapes", R"({"\"\\\/\b\f\n\r\t\u00E9\uD800":"\\"})",
     R"("\"\\\/\b\f\n\r\t\u00E9\uD800"S"\\";)"},
    {"array", "[1]", "line 1, column 1: the file must hold an object, so \"{\" is expected here"},
    {"trailing", "{}\n{}", "line 2, column 1: nothing may follow the object's closing brace"},
    {"trailingComma", "{\"a\":1,}", "line 1, column 8: a key in double quotes is expected here"},
    {"noColon", "{\"a\" 1}", "line 1, column 6: \":\" is expected after a key"},
    {"noComma", "{\"a\":1 \"b\":2}", "line 1, column 8: \",\" or \"}\" is expected after a member"},
    {"noCommaInArray", "{\"a\":[1 2]}",
     "line 1, column 9: \",\" or \"]\" is expected after an item"},
    {"wordTooLong", "{\"a\":nulls}",
     "line 1, column 10: \",\" or \"}\" is expected after a member"},
    {"unknownEscape", "{\"a\":\"\\x\"}",
     "line 1, column 8: a backslash in a text must begin one of "
     "\\\" \\\\ \\/ \\b \\f \\n \\r \\t \\uXXXX"},
    {"shortEscape", "{\"a\":\"\\u123g\"}",
     "line 1, column 12: \\u in a text must be followed by four hexadecimal digits"},
    {"controlCharacter", "{\"a\":\"x\x1F\"}",
     "line 1, column 8: a control character in a text must be written as an escape such as "
     "\\n or \\u0000"},
    {"encodedSurrogate", "{\"\xED\xA0\x80\":1}", "line 1, column 3: the text is not valid UTF-8"},
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

TEST(Scanner, LimitsTheDepthOfWhatIsOpen) {
    const auto nested = [](std::size_t arrays) {
        return "{\"a\":" + std::string(arrays, '[') + std::string(arrays, ']') + "}";
    };
    EXPECT_NO_THROW(JsonScanner::scan(nested(JsonScanner::depthLimit - 1)));
    EXPECT_THROW(JsonScanner::scan(nested(JsonScanner::depthLimit)), JsonError);
    std::string objects;
    std::string wide = "{\"a\":[0";
    for (std::size_t item = 0; item < 2 * JsonScanner::depthLimit; ++item) {
        wide += ",[]";
        objects += "{\"a\":";
    }
    EXPECT_NO_THROW(JsonScanner::scan(wide + "]}"));
    EXPECT_THROW(JsonScanner::scan(objects + "0" + std::string(objects.size() / 5, '}')),
                 JsonError);
}

TEST(Scanner, NumbersAreThoseOfTheGrammarAndNoOthers) {
    const testing::Matcher<const std::string&> grammar =
        testing::MatchesRegex("-?(0|[1-9][0-9]*)(\\.[0-9]+)?([eE][+-]?[0-9]+)?");
    for (const std::string& text : jsonpad_test::allTexts("-0.2eE+", 5)) {
        ASSERT_EQ(!text.empty() && JsonScanner::numberLength(text) == text.size(),
                  grammar.Matches(text))
            << text;
    }
}

}  // namespace
