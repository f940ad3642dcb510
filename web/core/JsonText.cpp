#include "JsonText.h"

#include <emmintrin.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonValue>
#include <algorithm>
#include <charconv>
#include <cmath>

#include "TextConversions.h"
#include "Utf8.h"

namespace DOVA {

namespace {

constexpr std::size_t s_step = 8;
constexpr std::size_t s_most = 64;  // units that are narrowed before they are appended

bool isPlain(unsigned unit) {
    return unit >= 0x20 && unit < 0x80 && unit != '"' && unit != '\\';
}

/// Writes eight units as bytes. True if all are plain; if not, what was written is of no use.
bool narrowEight(const char16_t* units, char* bytes) {
    const auto is = [](__m128i tested, char16_t unit) {
        return _mm_cmpeq_epi16(tested, _mm_set1_epi16(static_cast<short>(unit)));
    };
    const __m128i given = _mm_loadu_si128(reinterpret_cast<const __m128i*>(units));
    const __m128i below = _mm_subs_epu16(_mm_set1_epi16(0x20), given);
    const __m128i above = _mm_subs_epu16(given, _mm_set1_epi16(0x7F));
    const __m128i outside =
        _mm_or_si128(_mm_or_si128(below, above), _mm_or_si128(is(given, u'"'), is(given, u'\\')));
    _mm_storel_epi64(reinterpret_cast<__m128i*>(bytes), _mm_packus_epi16(given, given));
    return _mm_movemask_epi8(_mm_cmpeq_epi8(outside, _mm_setzero_si128())) == 0xFFFF;
}

/// Appends the plain units from `at` on, `s_most` of them at the most; gives the place behind them.
std::size_t appendPlain(std::string& to, std::u16string_view text, std::size_t at) {
    char bytes[s_most];
    std::size_t count = 0;
    const std::size_t most = std::min(s_most, text.size() - at);
    const char16_t* units = text.data() + at;
    while (count + s_step <= most && narrowEight(units + count, bytes + count)) {
        count += s_step;
    }
    for (; count < most && isPlain(units[count]); ++count) {
        bytes[count] = static_cast<char>(units[count]);
    }
    to.append(bytes, count);
    return at + count;
}

}  // namespace

void JsonText::number(std::int64_t value) {
    char digits[24];
    m_text.append(digits, std::to_chars(digits, digits + sizeof digits, value).ptr);
}

void JsonText::string(std::u16string_view text) {
    m_text += '"';
    for (std::size_t at = 0; at < text.size();) {
        at = appendPlain(m_text, text, at);
        while (at < text.size() && !isPlain(text[at])) {
            special(text, at);
        }
    }
    m_text += '"';
}

void JsonText::utf8(const std::string& text) {
    const auto isPlainByte = [](char byte) { return isPlain(static_cast<unsigned char>(byte)); };
    if (std::all_of(text.begin(), text.end(), isPlainByte)) {
        m_text.append(1, '"').append(text).append(1, '"');
    } else {
        string(toU16View(QString::fromStdString(text)));
    }
}

void JsonText::special(std::u16string_view text, std::size_t& at) {
    const unsigned unit = text[at++];
    if (isHighSurrogate(unit) && at < text.size() && isLowSurrogate(text[at])) {
        appendUtf8(m_text, joinSurrogates(unit, text[at++]));
    } else if (unit < 0x80 || isHighSurrogate(unit) || isLowSurrogate(unit)) {
        escape(unit);
    } else {
        appendUtf8(m_text, unit);
    }
}

void JsonText::escape(unsigned unit) {
    constexpr std::string_view units = "\"\\\b\f\n\r\t";
    constexpr std::string_view letters = "\"\\bfnrt";
    const std::size_t known = unit < 0x80 ? units.find(static_cast<char>(unit)) : units.npos;
    m_text += '\\';
    if (known != units.npos) {
        m_text += letters[known];
        return;
    }
    m_text += 'u';
    for (int shift = 12; shift >= 0; shift -= 4) {
        m_text += "0123456789abcdef"[unit >> shift & 15];
    }
}

void JsonText::close(char bracket) {
    if (m_text.back() == ',') {
        m_text.pop_back();
    }
    m_text += bracket;
}

void JsonText::value(const QJsonValue& value) {
    constexpr double tooLarge = 1LL << 53;  // for all whole numbers below it to be told apart
    const double number = value.toDouble(0.5);
    if (value.isString()) {
        const QString text = value.toString();
        string(toU16View(text));
    } else if (value.isBool()) {
        flag(value.toBool());
    } else if (std::abs(number) < tooLarge && number == std::floor(number)) {
        this->number(static_cast<std::int64_t>(number));
    } else {
        const QByteArray array = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
        m_text.append(array.constData() + 1, static_cast<std::size_t>(array.size()) - 2);
    }
}

}  // namespace DOVA
