#include "core/PropertyMessage.h"

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <limits>
#include <random>

namespace DOVA {
namespace {

using Limits = std::numeric_limits<double>;

std::string byQt(const std::string& type, const QString& name, const QJsonValue& value) {
    QJsonObject message{{"id", "7"}, {"type", QString::fromStdString(type)}};
    message.insert(name, value);
    return QJsonDocument(QJsonArray{message}).toJson(QJsonDocument::Compact).toStdString();
}

void expectAsQtWrites(const std::string& type, const std::u16string& name,
                      const QJsonValue& value) {
    const std::string expected = byQt(type, QString::fromStdU16String(name), value);
    EXPECT_EQ(propertyMessage(7, type, name, value), expected);
    if (value.isString()) {
        EXPECT_EQ(propertyMessage(7, type, name, value.toString().toStdU16String()), expected);
    }
}

QString everyUnit() {
    QString text;
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
        text += QChar(unit);  // each half of a pair but one stands alone
    }
    return text;
}

TEST(PropertyMessageTest, isWhatQtWrites) {
    const QJsonArray parsed =
        QJsonDocument::fromJson(R"([1.0,1e5,-0,-0.0,1e-7,12345678901234567890,"",[],{}])").array();
    std::vector<QJsonValue> values{true,
                                   false,
                                   QJsonValue(),
                                   0,
                                   -1,
                                   0.1,
                                   -0.0,
                                   1e15,
                                   1e300,
                                   5e-324,
                                   std::numeric_limits<int>::min(),
                                   "",
                                   "\\\"/\b\f\n\r\t\x7f",
                                   everyUnit(),
                                   QJsonArray{1, "a", QJsonArray()},
                                   QJsonObject{{"z", 1}, {"a", QJsonObject()}},
                                   QJsonValue::Undefined};
    for (const double edge : {1.0 * (1LL << 53), Limits::infinity(), Limits::quiet_NaN()}) {
        values.insert(values.end(), {edge, -edge, edge - 1, edge + 2});
    }
    values.insert(values.end(), parsed.begin(), parsed.end());
    const std::string types[] = {"Button", "", "\"\\\n", "\xC3\x9C", "\xEF\xBB\xBFmark", "\xFF"};
    for (const char16_t* name : {u"label", u"icon", u"ie", u"visible", u"types", u"", u"a\"\\\n",
                                 u"id", u"type", u"\u00FC", u"i\u00FC", u"\xD800"}) {
        for (const std::string& type : types) {
            for (const QJsonValue& value : values) {
                expectAsQtWrites(type, name, value);
            }
        }
    }
}

/// Texts of every length around the eight and sixty-four units that are written in one go.
TEST(PropertyMessageTest, randomTextsAreWhatQtWrites) {
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    constexpr char16_t odd[] = u"\"\\\n\x01\x1F\x20\x7E\x7F\x80\x7FF\x800\xD83D\xDE00\xFEFF\xFFFF";
    for (int i = 0; i < 20000; ++i) {
        std::u16string text(random() % 150, u'a');
        for (unsigned change = random() % 4; change > 0 && !text.empty(); --change) {
            text[random() % text.size()] = odd[random() % std::size(odd)];
        }
        expectAsQtWrites("Edit", u"text", QString::fromStdU16String(text));
        const double number =
            std::ldexp(static_cast<int>(random()), static_cast<int>(random() % 60) - 40);
        expectAsQtWrites("Edit", u"text", number);
    }
}

}  // namespace
}  // namespace DOVA
