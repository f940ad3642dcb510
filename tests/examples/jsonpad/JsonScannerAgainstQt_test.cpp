// The same texts through the scanner and through Qt's parser. Qt forgives more than the grammar
// allows (unknown escapes, bare control characters, "1."), so where both must agree in both
// directions the texts are made of what Qt is strict about.
#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <map>
#include <optional>

#include "RandomJson.h"
#include "jsonpad/JsonError.h"
#include "jsonpad/JsonScanner.h"
#include "jsonpad/JsonString.h"

/// Qt 5.15 loses the first value when two equal keys of an object both hold arrays or objects.
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions() {
    return "leak:libQt5Core";
}

namespace {

using jsonpad::JsonKind;
using jsonpad::JsonMember;
using jsonpad::JsonScanner;
using jsonpad_test::RandomJson;

std::optional<std::vector<JsonMember>> scan(const std::string& text) {
    try {
        return JsonScanner::scan(text);
    } catch (const jsonpad::JsonError&) {
        return std::nullopt;
    }
}

std::optional<QJsonObject> parseWithQt(const std::string& text) {
    const auto document = QJsonDocument::fromJson(QByteArray::fromStdString(text));
    return document.isObject() ? std::optional(document.object()) : std::nullopt;
}

QString toQString(std::string_view token) {
    return QString::fromStdU16String(jsonpad::decodeJsonString(token));
}

/// What Qt makes of the one value.
QJsonValue valueOf(std::string_view token) {
    const QByteArray text = "[" + QByteArray(token.data(), static_cast<int>(token.size())) + "]";
    return QJsonDocument::fromJson(text).array().at(0);
}

bool isOfKind(const QJsonValue& value, JsonKind kind) {
    switch (kind) {
        case JsonKind::String:
            return value.isString();
        case JsonKind::Number:
            return value.isDouble();
        case JsonKind::Boolean:
            return value.isBool();
        case JsonKind::Null:
            return value.isNull();
        case JsonKind::Nested:
            break;
    }
    return value.isArray() || value.isObject();
}

/// That the members make Qt's object; of equal keys the last counts, as it does for Qt.
void expectSame(const std::vector<JsonMember>& members, const QJsonObject& object) {
    std::map<QString, JsonMember> lastOfKey;
    for (const JsonMember& member : members) {
        lastOfKey[toQString(member.key)] = member;
    }
    EXPECT_EQ(lastOfKey.size(), static_cast<std::size_t>(object.size()));
    for (const auto& [key, member] : lastOfKey) {
        const QJsonValue value = member.kind == JsonKind::String
                                     ? QJsonValue(toQString(member.value))
                                     : valueOf(member.value);
        EXPECT_TRUE(isOfKind(value, member.kind)) << member.value;
        EXPECT_TRUE(object.value(key) == value) << member.key << " " << member.value;
    }
}

TEST(ScannerAgainstQt, FindsTheSameInRandomObjects) {
    const auto seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    RandomJson random(seed);
    for (int round = 0; round < 3000; ++round) {
        const std::string text = random.object();
        const auto members = scan(text);
        const auto object = parseWithQt(text);
        ASSERT_TRUE(members && object) << text;
        expectSame(*members, *object);
        ASSERT_FALSE(HasFailure()) << text;
    }
}

TEST(ScannerAgainstQt, AcceptsTheSameSmallTexts) {
    const std::string alphabet = "{}[],:\"1";
    std::vector<std::string> level{""};
    int accepted = 0;
    for (int length = 0; length < 5; ++length) {
        std::vector<std::string> next;
        for (const std::string& inner : level) {
            for (const char letter : alphabet) {
                next.push_back(inner + letter);
                const std::string text = "{\"\":" + next.back() + "}";
                const bool isAccepted = scan(text).has_value();
                accepted += isAccepted ? 1 : 0;
                ASSERT_EQ(isAccepted, parseWithQt(text).has_value()) << text;
            }
        }
        level = std::move(next);
    }
    EXPECT_GT(accepted, 100) << "the texts are too poor to compare anything";
}

TEST(ScannerAgainstQt, AcceptsTheSameDamagedTexts) {
    const auto seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    RandomJson random(seed);
    const std::string original =
        R"({"a": [1, 23, {"b": "text"}], "c": {"d": [[], {}]}, "f": "", "g": [null, 0]})";
    const std::string alphabet = "{}[],:\"0 9";
    for (int round = 0; round < 20000; ++round) {
        std::string text = original;
        for (std::size_t hits = 1 + random.below(3); hits > 0; --hits) {
            const std::size_t place = random.below(text.size());
            const std::string piece(random.below(2), alphabet[random.below(alphabet.size())]);
            text.replace(place, random.below(2), piece);
        }
        ASSERT_EQ(scan(text).has_value(), parseWithQt(text).has_value()) << text;
    }
}

}  // namespace
