#include "jsonpad/json/JsonScanner.h"

#include <gmock/gmock.h>

#include <string>

#include "AllTexts.h"
#include "jsonpad/json/JsonError.h"
#include "support/JsonRows.h"

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

class Scanner : public testing::TestWithParam<DOVA::test::JsonRow> {};

TEST_P(Scanner, FindsMembersOrSaysWhereTheFaultIs) {
    EXPECT_EQ(scan(GetParam().text("text")), GetParam().text("found"));
}

INSTANTIATE_TEST_SUITE_P(All, Scanner, testing::ValuesIn(DOVA::test::readRows(ROWS, "scanner")),
                         DOVA::test::RowName());

TEST(Scanner, RefusesAnEncodedSurrogate) {
    EXPECT_EQ(scan("{\"\xED\xA0\x80\":1}"), "line 1, column 3: the text is not valid UTF-8");
}

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
