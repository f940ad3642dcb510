#include "TextConversions.h"

#include <QJsonValue>
#include <algorithm>
#include <cmath>
#include <limits>

namespace DOVA {

namespace {

constexpr std::uint64_t s_maximum = std::numeric_limits<std::uint32_t>::max();

template <class Text>
std::uint32_t parseDecimal(const Text& text) {
    std::uint64_t number = 0;
    for (const auto character : text) {
        if (character < '0' || character > '9') {
            return 0;
        }
        number = number * 10 + static_cast<std::uint64_t>(character - '0');
        if (number > s_maximum) {
            return 0;
        }
    }
    return static_cast<std::uint32_t>(number);
}

}  // namespace

bool isAscii(std::u16string_view text) {
    return std::all_of(text.begin(), text.end(), [](char16_t unit) { return unit < 0x80; });
}

std::u16string utf8ToU16(const std::string& text) {
    constexpr char mark[] = "\xEF\xBB\xBF";
    std::u16string marks;
    std::size_t at = 0;
    for (; text.compare(at, sizeof mark - 1, mark) == 0; at += sizeof mark - 1) {
        marks += u'\ufeff';
    }
    return marks + toU16(QString::fromStdString(text.substr(at)));
}

std::u16string decimal(int value) {
    return toU16(QString::number(value));
}

std::uint32_t parseIdentifier(std::string_view text) {
    return parseDecimal(text);
}

std::uint32_t parseIdentifier(const QJsonValue& value) {
    if (value.isString()) {
        return parseDecimal(toU16View(value.toString()));
    }
    const double number = value.toDouble(0);
    const bool fits = number >= 0 && number <= s_maximum && number == std::floor(number);
    return fits ? static_cast<std::uint32_t>(number) : 0;
}

}  // namespace DOVA
