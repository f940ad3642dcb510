#include "JsonString.h"

#include <algorithm>
#include <boost/locale/encoding_utf.hpp>
#include <charconv>

namespace jsonpad {

namespace {

namespace utf = boost::locale::utf;

constexpr std::string_view s_escapeLetters = "\"\\/bfnrt";
constexpr std::string_view s_escapedBytes = "\"\\/\b\f\n\r\t";

/// Appends what the escape at the front of `escape` (after its backslash) stands for; gives how
/// many bytes it took.
std::size_t decodeEscape(std::string_view escape, std::u16string& result) {
    if (escape.front() != 'u') {
        result += static_cast<char16_t>(s_escapedBytes[s_escapeLetters.find(escape.front())]);
        return 1;
    }
    unsigned int unit = 0;
    std::from_chars(escape.data() + 1, escape.data() + 5, unit, 16);
    result += static_cast<char16_t>(unit);
    return 5;
}

/// How many units the character at the front of `text` has; 0 when it must be escaped.
std::size_t plainUnits(std::u16string_view text) {
    const char16_t* next = text.data();
    const auto code = utf::utf_traits<char16_t>::decode(next, text.data() + text.size());
    const bool isPlain =
        utf::is_valid_codepoint(code) && code >= 0x20 && code != '"' && code != '\\';
    return isPlain ? static_cast<std::size_t>(next - text.data()) : 0;
}

std::string encodeEscape(char16_t unit) {
    const std::size_t letter =
        unit < 0x80 ? s_escapedBytes.find(static_cast<char>(unit)) : std::string_view::npos;
    if (letter != std::string_view::npos) {
        return {'\\', s_escapeLetters[letter]};
    }
    constexpr std::string_view digits = "0123456789abcdef";
    return {'\\',
            'u',
            digits[unit >> 12U],
            digits[(unit >> 8U) & 0xFU],
            digits[(unit >> 4U) & 0xFU],
            digits[unit & 0xFU]};
}

}  // namespace

std::u16string toUtf16(std::string_view text) {
    return boost::locale::conv::utf_to_utf<char16_t>(text.data(), text.data() + text.size());
}

std::u16string decodeJsonString(std::string_view token) {
    std::string_view rest = token.substr(1, token.size() - 2);
    std::u16string result;
    while (!rest.empty()) {
        const std::string_view plain = rest.substr(0, rest.find('\\'));
        result += toUtf16(plain);
        rest.remove_prefix(plain.size());
        if (!rest.empty()) {
            rest.remove_prefix(1 + decodeEscape(rest.substr(1), result));
        }
    }
    return result;
}

std::string encodeJsonString(std::u16string_view text) {
    std::string result = "\"";
    while (!text.empty()) {
        std::size_t run = 0;
        std::size_t units = 0;
        while (run < text.size() && (units = plainUnits(text.substr(run))) > 0) {
            run += units;
        }
        result += boost::locale::conv::utf_to_utf<char>(text.data(), text.data() + run);
        text.remove_prefix(run);
        if (!text.empty()) {
            result += encodeEscape(text.front());
            text.remove_prefix(1);
        }
    }
    return result + '"';
}

std::string encodeJsonNumber(std::u16string_view text) {
    if (std::any_of(text.begin(), text.end(), [](char16_t unit) { return unit >= 0x80; })) {
        return {};
    }
    std::string token(text.size(), '\0');
    std::transform(text.begin(), text.end(), token.begin(),
                   [](char16_t unit) { return static_cast<char>(unit); });
    return JsonScanner::numberLength(token) == token.size() ? token : std::string();
}

std::u16string decodeJson(JsonKind kind, std::string_view token) {
    return kind == JsonKind::String ? decodeJsonString(token)
           : kind > JsonKind::Null  ? compactJson(token)
                                    : toUtf16(token);
}

std::u16string compactJson(std::string_view value) {
    std::string result;
    bool isInString = false;
    bool isEscaped = false;
    for (const char byte : value) {
        if (isInString || std::string_view(" \t\r\n").find(byte) == std::string_view::npos) {
            result += byte;
        }
        isInString = isInString != (byte == '"' && !isEscaped);
        isEscaped = byte == '\\' && !isEscaped;
    }
    return toUtf16(result);
}

}  // namespace jsonpad
