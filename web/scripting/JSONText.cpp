#include "JSONText.h"

#include <QJsonArray>
#include <QJsonObject>

#include "../core/TextConversions.h"
#include "RepeatedMembers.h"
#include "host/Console.h"

namespace DOVA::web {

namespace {

constexpr std::size_t s_longest = std::size_t(1) << 27;

void printError(const QJsonParseError& error) {
    const QByteArray message = error.errorString().toUtf8();
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-security"
    // The message is the format: callers see it as it is, with no line break of ours.
    utPrintf(message.constData());
#pragma GCC diagnostic pop
}

}  // namespace

bool fits(const std::u16string& text) {
    if (text.size() <= s_longest) {
        return true;
    }
    QJsonParseError error;
    error.error = QJsonParseError::DocumentTooLarge;
    printError(error);
    return false;
}

QJsonDocument parseText(const std::u16string& text) {
    if (!fits(text)) {
        return {};
    }
    const auto* characters = reinterpret_cast<const QChar*>(text.data());
    QJsonParseError error;
    const QJsonDocument document = parseLastMembers(
        QString::fromRawData(characters, static_cast<int>(text.size())).toLocal8Bit(), error);
    if (error.error != QJsonParseError::NoError) {
        printError(error);
    }
    return document;
}

QJsonValue elementFromText(const std::u16string& text) {
    const QJsonDocument document = parseText(text);
    return document.isObject()  ? QJsonValue(document.object())
           : document.isArray() ? QJsonValue(document.array())
                                : QJsonValue(QJsonValue::Null);
}

QJsonDocument documentOf(const QJsonValue& value) {
    return value.isArray()    ? QJsonDocument(value.toArray())
           : value.isObject() ? QJsonDocument(value.toObject())
                              : QJsonDocument();
}

std::u16string writeText(const QJsonDocument& document, JSONFormat format) {
    const auto layout =
        format == JSONFormat::Compact ? QJsonDocument::Compact : QJsonDocument::Indented;
    return toU16(QString::fromLocal8Bit(document.toJson(layout)));
}

JSONType typeOf(const QJsonValue& value) {
    const int code = value.type();
    return code < static_cast<int>(JSONType::UndefinedType) ? static_cast<JSONType>(code)
                                                            : JSONType::UndefinedType;
}

}  // namespace DOVA::web
