#include "JsonText.h"

#include <charconv>

namespace tdom {

namespace {

bool isPlain(std::uint32_t unit) {
    return unit >= 0x20 && unit < 0x80 && unit != '"' && unit != '\\';
}

bool isHighSurrogate(std::uint32_t unit) {
    return (unit & 0xFC00) == 0xD800;
}

bool isLowSurrogate(std::uint32_t unit) {
    return (unit & 0xFC00) == 0xDC00;
}

char byteOf(std::uint32_t bits) {
    return static_cast<char>(static_cast<unsigned char>(bits));
}

template <class Number>
void appendNumber(std::string& text, Number value) {
    char digits[24];
    text.append(digits, std::to_chars(digits, digits + sizeof digits, value).ptr);
}

}  // namespace

void JsonText::number(std::uint64_t value) {
    appendNumber(m_text, value);
}

void JsonText::number(std::int32_t value) {
    appendNumber(m_text, value);
}

void JsonText::escape(std::uint32_t unit) {
    constexpr std::string_view codes = "\"\"\\\\\bb\ff\nn\rr\tt";  // each with its letter
    for (std::size_t i = 0; i < codes.size(); i += 2) {
        if (static_cast<unsigned char>(codes[i]) == unit) {
            m_text += {'\\', codes[i + 1]};
            return;
        }
    }
    m_text += "\\u";
    for (int shift = 12; shift >= 0; shift -= 4) {
        m_text += "0123456789abcdef"[(unit >> shift) & 15];
    }
}

void JsonText::encode(std::uint32_t character) {
    const auto tail = [character](int shift) { return byteOf(0x80 | ((character >> shift) & 63)); };
    if (character < 0x800) {
        m_text += {byteOf(0xC0 | (character >> 6)), tail(0)};
    } else if (character < 0x10000) {
        m_text += {byteOf(0xE0 | (character >> 12)), tail(6), tail(0)};
    } else {
        m_text += {byteOf(0xF0 | (character >> 18)), tail(12), tail(6), tail(0)};
    }
}

void JsonText::string(std::u16string_view text) {
    m_text += '"';
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::uint32_t unit = text[i];
        if (isPlain(unit)) {
            m_text += static_cast<char>(unit);
        } else if (unit < 0x20 || unit == '"' || unit == '\\') {
            escape(unit);
        } else if (isHighSurrogate(unit) && i + 1 < text.size() && isLowSurrogate(text[i + 1])) {
            encode(0x10000 + ((unit & 0x3FF) << 10) + (text[++i] & 0x3FFU));
        } else if (isHighSurrogate(unit) || isLowSurrogate(unit)) {
            escape(unit);
        } else {
            encode(unit);
        }
    }
    m_text += '"';
}

void JsonText::string(std::string_view text) {
    m_text += '"';
    for (const char byte : text) {
        const auto unit = static_cast<unsigned char>(byte);
        if (isPlain(unit) || unit >= 0x80) {
            m_text += byte;
        } else {
            escape(unit);
        }
    }
    m_text += '"';
}

}  // namespace tdom
