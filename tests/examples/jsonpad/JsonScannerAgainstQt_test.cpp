// The same texts through the scanner and through Qt's parser. Qt forgives more than the grammar
// allows (unknown escapes, bare control characters, "1."), so the texts are made of what Qt is
// strict about.
#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <optional>

#include "AllTexts.h"
#include "jsonpad/json/JsonError.h"
#include "jsonpad/json/JsonScanner.h"
#include "jsonpad/json/JsonString.h"

namespace {

using jsonpad::JsonScanner;

std::optional<QJsonObject> parseWithQt(const std::string& text) {
    const auto document = QJsonDocument::fromJson(QByteArray::fromStdString(text));
    return document.isObject() ? std::optional(document.object()) : std::nullopt;
}

/// The members as Qt's object, each value as Qt reads it alone; of equal keys the last counts.
std::optional<QJsonObject> scan(const std::string& text) {
    try {
        QJsonObject result;
        for (const jsonpad::JsonMember& member : JsonScanner::scan(text)) {
            const auto value = QByteArray::fromStdString("[" + std::string(member.value) + "]");
            result.insert(QString::fromStdU16String(jsonpad::decodeJsonString(member.key)),
                          QJsonDocument::fromJson(value).array().at(0));
        }
        return result;
    } catch (const jsonpad::JsonError&) {
        return std::nullopt;
    }
}

TEST(ScannerAgainstQt, FindsTheSameInSmallTexts) {
    int accepted = 0;
    for (const std::string& inner : jsonpad_test::allTexts("{}[],:\"1 ", 5)) {
        const std::string text = "{\"a\":" + inner + "}";
        const auto members = scan(text);
        accepted += members ? 1 : 0;
        ASSERT_EQ(members, parseWithQt(text)) << text;
    }
    EXPECT_GT(accepted, 100) << "the texts are too poor to compare anything";
}

}  // namespace
