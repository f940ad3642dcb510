#include "jsonpad/json/JsonString.h"

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>

#include "jsonpad/json/JsonScanner.h"

namespace {

using jsonpad::decodeJsonString;
using jsonpad::encodeJsonString;
using namespace std::string_literals;

TEST(JsonText, EscapesOnlyWhatMustBe) {
    EXPECT_EQ(encodeJsonString(u"a/b\u007f\u00e9\u2028\U0001F600"),
              "\"a/b\x7F\xC3\xA9\xE2\x80\xA8\xF0\x9F\x98\x80\"");
    EXPECT_EQ(encodeJsonString(u"\"\\\b\f\n\r\t\u0001\u001f"s + u'\0'),
              R"("\"\\\b\f\n\r\t\u0001\u001f\u0000")");
    EXPECT_EQ(encodeJsonString(u"\xDE00\xD83D\xD83D\xDE00z\xD83D"),
              "\"\\ude00\\ud83d\xF0\x9F\x98\x80z\\ud83d\"");
}

TEST(JsonText, DecodesEveryFormOfEscape) {
    EXPECT_EQ(decodeJsonString(R"("\/\u00E9\u00e9\ud83d\uDE00\\u0041")"),
              u"/\u00e9\u00e9\U0001F600\\u0041");
}

TEST(JsonText, NoUnitIsLostAndQtReadsTheSame) {
    for (unsigned int unit = 0; unit <= 0xFFFF; ++unit) {
        const auto first = static_cast<char16_t>(unit);
        const std::u16string text{first, 0xDC00, first};
        const std::string token = encodeJsonString(text);
        ASSERT_EQ(decodeJsonString(token), text) << token;
        ASSERT_EQ(jsonpad::JsonScanner::scan("{" + token + (":" + token) + "}").size(), 1U) << unit;
        const auto byQt = QJsonDocument::fromJson(QByteArray::fromStdString("[" + token + "]"));
        ASSERT_EQ(byQt.array().at(0).toString().toStdU16String(), text) << token;
    }
}

TEST(JsonText, CompactTakesOnlyTheSpaceBetweenTokens) {
    EXPECT_EQ(jsonpad::compactJson("{ \"a \xC3\xA9\" : \" \\\" c \\\\\" , \"d\":\r\n\t[ 1.0 ] }"),
              uR"({"a é":" \" c \\","d":[1.0]})");
}

}  // namespace
