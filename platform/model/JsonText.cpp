#include "JsonText.h"

#include <boost/locale/utf.hpp>
#include <charconv>
#include <iterator>

namespace tdom {

namespace {

namespace utf = boost::locale::utf;

bool isPlain(std::uint32_t unit) {
    return unit >= 0x20 && unit < 0x80 && unit != '"' && unit != '\\';
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

void JsonText::string(std::u16string_view text) {
    m_text += '"';
    for (std::size_t i = 0; i < text.size();) {
        if (isPlain(text[i])) {
            m_text += static_cast<char>(text[i++]);
        } else {
            i += special(text.substr(i));
        }
    }
    m_text += '"';
}

// On its own, so that plain text goes through a short loop.
std::size_t JsonText::special(std::u16string_view text) {
    auto next = text.begin();
    const utf::code_point code = utf::utf_traits<char16_t>::decode(next, text.end());
    if (code < 0x80 || code == utf::illegal || code == utf::incomplete) {
        escape(text.front());
        return 1;
    }
    utf::utf_traits<char>::encode(code, std::back_inserter(m_text));
    return static_cast<std::size_t>(next - text.begin());
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
