#include "JSONText.h"

#include <QJsonArray>
#include <QJsonObject>

#include "../core/TextConversions.h"
#include "Nesting.h"
#include "RepeatedMembers.h"
#include "host/Console.h"

namespace DOVA::web {

namespace {

// Every second character may be an element, of which Qt holds less than 2^27 in a container; and a
// text is written into a buffer of so many bytes, which is doubled up to three times and holds less
// than 2^31.
constexpr std::size_t s_longest = (std::size_t(1) << 28) - (std::size_t(1) << 17);

void print(const QJsonParseError& error) {
    const QByteArray message = error.errorString().toUtf8();
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-security"
    // The message is the format: callers see it as it is, with no line break of ours.
    utPrintf(message.constData());
#pragma GCC diagnostic pop
}

/// Bytes as the parser wants them.
QByteArray bytesOf(const std::u16string& text) {
    const auto* characters = reinterpret_cast<const QChar*>(text.data());
    return QString::fromRawData(characters, static_cast<int>(text.size())).toLocal8Bit();
}

QJsonDocument parseBytes(const QByteArray& bytes) {
    QJsonParseError error{};
    QJsonDocument document = parseLastMembers(bytes, error);
    if (error.error != QJsonParseError::NoError) {
        print(error);
    }
    return document;
}

QJsonValue rootOf(const QJsonDocument& document) {
    return document.isObject()  ? QJsonValue(document.object())
           : document.isArray() ? QJsonValue(document.array())
                                : QJsonValue(QJsonValue::Null);
}

}  // namespace

void printError(QJsonParseError::ParseError error) {
    QJsonParseError described{};
    described.error = error;
    print(described);
}

bool fits(std::size_t units) {
    const bool fits = units <= s_longest;
    if (!fits) {
        printError(QJsonParseError::DocumentTooLarge);
    }
    return fits;
}

QJsonDocument parseText(const std::u16string& text) {
    return fits(text) ? parseBytes(bytesOf(text)) : QJsonDocument();
}

QJsonValue valueFromText(const std::u16string& text) {
    return rootOf(parseText(text));
}

// Parsed inside of one more array, so that the parser itself says what is too deep.
std::optional<QJsonValue> elementFromText(const std::u16string& text) {
    if (!fits(text)) {
        return std::nullopt;
    }
    QByteArray bytes = bytesOf(text);
    const int begin = bytes.startsWith("\xef\xbb\xbf") ? 3 : 0;  // a mark that stays in front
    QJsonParseError error{};
    const QJsonArray inside = parseLastMembers(bytes.insert(begin, '[').append(']'), error).array();
    if (inside.size() == 1 && (inside.at(0).isArray() || inside.at(0).isObject())) {
        return inside.at(0);
    }
    bytes.chop(1);
    const QJsonValue root = rootOf(parseBytes(bytes.remove(begin, 1)));
    return root.isNull() || checkLevels(s_mostLevels) ? std::optional(root) : std::nullopt;
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
