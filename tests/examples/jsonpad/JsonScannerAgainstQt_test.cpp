// The same texts through the scanner and through Qt's parser. Qt forgives more than the grammar
// allows (unknown escapes, bare control characters, "1."), so where both must agree in both
// directions the texts are made of what Qt is strict about.
#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <optional>

#include "AllTexts.h"
#include "RandomJson.h"
#include "jsonpad/JsonError.h"
#include "jsonpad/JsonScanner.h"
#include "jsonpad/JsonString.h"

/// Qt 5.15 loses the first value when two equal keys of an object both hold arrays or objects.
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions() {
    return "leak:libQt5Core";
}

namespace {

using jsonpad::JsonScanner;
using jsonpad_test::RandomJson;

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

TEST(ScannerAgainstQt, FindsTheSameInRandomObjects) {
    const auto seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    RandomJson random(seed);
    for (int round = 0; round < 3000; ++round) {
        const std::string text = random.object();
        const auto members = scan(text);
        ASSERT_TRUE(members && members == parseWithQt(text)) << text;
    }
}

TEST(ScannerAgainstQt, AcceptsTheSameSmallTexts) {
    int accepted = 0;
    for (const std::string& inner : jsonpad_test::allTexts("{}[],:\"1", 5)) {
        const std::string text = "{\"\":" + inner + "}";
        const bool isAccepted = scan(text).has_value();
        accepted += isAccepted ? 1 : 0;
        ASSERT_EQ(isAccepted, parseWithQt(text).has_value()) << text;
    }
    EXPECT_GT(accepted, 100) << "the texts are too poor to compare anything";
}

TEST(ScannerAgainstQt, AcceptsTheSameDamagedTexts) {
    const auto seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    RandomJson random(seed);
    const std::string original =
        R"({"a": [1, 23, {"b": "text"}], "c": {"d": [[], {}]}, "f": "", "g": [null, 0]})";
    for (int round = 0; round < 20000; ++round) {
        std::string text = original;
        for (std::size_t hits = 1 + random.below(3); hits > 0; --hits) {
            text.replace(random.below(text.size()), random.below(2),
                         random.one({"", "{", "}", "[", "]", ",", ":", "\"", "0", " ", "9"}));
        }
        ASSERT_EQ(scan(text).has_value(), parseWithQt(text).has_value()) << text;
    }
}

}  // namespace
