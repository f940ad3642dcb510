#pragma once

#include <QString>
#include <cstdint>
#include <string>
#include <string_view>

class QJsonValue;

namespace DOVA {

// Straight copies of the code units: much faster than QString::fromUtf16 on long texts, and a lone
// surrogate survives.
inline QString toQString(const char16_t* text, std::size_t length) {
    return QString(reinterpret_cast<const QChar*>(text), static_cast<int>(length));
}
inline QString toQString(const std::u16string& text) {
    return toQString(text.data(), text.size());
}
inline QStringView toView(const std::u16string& text) {
    return QStringView(text.data(), static_cast<qsizetype>(text.size()));
}
inline std::u16string_view toU16View(const QString& text) {
    return {reinterpret_cast<const char16_t*>(text.utf16()), static_cast<std::size_t>(text.size())};
}
inline std::u16string toU16(const QString& text) {
    return std::u16string(toU16View(text));
}
bool isAscii(std::u16string_view text);
/// A byte order mark at the front stays, which Qt's conversion takes off.
std::u16string utf8ToU16(const std::string& text);
inline std::string u16ToUtf8(const std::u16string& text) {
    return toQString(text).toStdString();
}

/// Decimal digits of a number as UTF-16.
std::u16string decimal(int value);

/// The identifier in a message: decimal text, or a JSON number for clients that write one. Anything
/// else counts as 0, which no object has: signs, blanks, fractions, more than 32 bits.
std::uint32_t parseIdentifier(const QJsonValue& value);
/// The same for what a string holds.
std::uint32_t parseIdentifier(std::string_view text);

}  // namespace DOVA
