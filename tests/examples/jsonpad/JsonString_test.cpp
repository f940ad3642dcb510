#include "jsonpad/JsonString.h"

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <random>

#include "jsonpad/JsonScanner.h"

namespace {

using namespace std::string_literals;

struct Row {
    const char* name;
    std::u16string text;
    const char* token;  ///< as it is written
};

const Row rows[] = {
    {"empty", u"", R"("")"},
    {"plain", u"a/b 'c'", R"("a/b 'c'")"},
    {"quoteAndBackslash", u"\"\\", R"("\"\\")"},
    {"shortEscapes", u"\b\f\n\r\t", R"("\b\f\n\r\t")"},
    {"otherControls", u"\u0001\u001f"s + u'\0', R"("\u0001\u001f\u0000")"},
    {"deleteIsPlain", u"\u007f", "\"\x7F\""},
    {"latin", u"\u00e9", "\"\xC3\xA9\""},
    {"pair", u"\U0001F600", "\"\xF0\x9F\x98\x80\""},
    {"loneHigh", u"a\xD83Dz", R"("a\ud83dz")"},
    {"loneHighAtEnd", u"\xD83D", R"("\ud83d")"},
    {"loneLow", u"\xDE00!", R"("\ude00!")"},
    {"pairTheWrongWayRound", u"\xDE00\xD83D", R"("\ude00\ud83d")"},
    {"highThenPair", u"\xD83D\xD83D\xDE00", "\"\\ud83d\xF0\x9F\x98\x80\""},
    {"lineSeparator", u"\u2028", "\"\xE2\x80\xA8\""},
};

class JsonText : public testing::TestWithParam<Row> {};

TEST_P(JsonText, EscapesOnlyWhatMustBe) {
    const std::string token = jsonpad::encodeJsonString(GetParam().text);
    EXPECT_EQ(token, GetParam().token);
    EXPECT_EQ(jsonpad::decodeJsonString(token), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(All, JsonText, testing::ValuesIn(rows),
                         [](const auto& row) { return row.param.name; });

TEST(JsonText, DecodesEveryFormOfEscape) {
    EXPECT_EQ(jsonpad::decodeJsonString(R"("\/\u00E9\u00e9\ud83d\uDE00\\u0041")"),
              u"/\u00e9\u00e9\U0001F600\\u0041");
}

TEST(JsonText, NoTextIsLostAndQtReadsTheSame) {
    const auto seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    for (int round = 0; round < 5000; ++round) {
        std::u16string text;
        for (std::size_t length = random() % 8; length > 0; --length) {
            const char16_t high = random() % 3 == 0 ? 0xD8 + random() % 8 : random() % 256;
            text += static_cast<char16_t>((random() % 2 == 0 ? 0 : high << 8U) + random() % 256);
        }
        const std::string token = jsonpad::encodeJsonString(text);
        ASSERT_EQ(jsonpad::decodeJsonString(token), text) << token;
        ASSERT_EQ(jsonpad::JsonScanner::scan("{" + token + ":" + token + "}").size(), 1U) << token;
        const auto byQt = QJsonDocument::fromJson(QByteArray::fromStdString("[" + token + "]"));
        ASSERT_EQ(byQt.array().at(0).toString().toStdU16String(), text) << token;
    }
}

struct CompactRow {
    const char* name;
    const char* value;
    std::u16string expected;
};

const CompactRow compactRows[] = {
    {"spaces", "[ 1,\r\n\t2 ]", u"[1,2]"},
    {"textKeepsSpaces", R"({ "a b" : " \" c \\" , "d": 1.0 })", uR"({"a b":" \" c \\","d":1.0})"},
    {"exactForms", R"([ 1.0e+5, "\u00e9" ])", uR"([1.0e+5,"\u00e9"])"},
    {"characters", "[ \"\xF0\x9F\x98\x80\" ]", u"[\"\U0001F600\"]"},
};

class Compact : public testing::TestWithParam<CompactRow> {};

TEST_P(Compact, TakesOnlyTheSpaceBetweenTokens) {
    EXPECT_EQ(jsonpad::compactJson(GetParam().value), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(All, Compact, testing::ValuesIn(compactRows),
                         [](const auto& row) { return row.param.name; });

}  // namespace
