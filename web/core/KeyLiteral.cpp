#include "KeyLiteral.h"

#include <algorithm>

#include "Utf8.h"

namespace DOVA {

namespace {

bool isEscaped(std::string_view text, std::size_t at) {
    std::size_t before = at;
    while (before > 0 && text[before - 1] == '\\') {
        --before;
    }
    return (at - before) % 2 != 0;
}

unsigned digit(char character) {
    const auto lower = static_cast<unsigned char>(character | 0x20);
    return lower >= 'a' ? lower - 'a' + 10u : static_cast<unsigned char>(character) - '0' + 0u;
}

/// The unit of the "uXXXX" at `at`; 0 for what is none.
unsigned unitAt(std::string_view literal, std::size_t at) {
    if (at + 5 > literal.size() || literal[at] != 'u') {
        return 0;
    }
    const char* digits = literal.data() + at + 1;
    return (digit(digits[0]) << 12 | digit(digits[1]) << 8 | digit(digits[2]) << 4 |
            digit(digits[3])) &
           0xFFFF;
}

/// The escape whose letter stands at `at`. Gives the first place behind it.
std::size_t appendEscaped(std::string& bytes, std::string_view literal, std::size_t at) {
    if (literal[at] == 'u') {
        const unsigned unit = unitAt(literal, at);
        const bool goesOn =
            isHighSurrogate(unit) && at + 5 < literal.size() && literal[at + 5] == '\\';
        const unsigned next = goesOn ? unitAt(literal, at + 6) : 0;
        const bool isPair = isLowSurrogate(next);
        appendUtf8(bytes, isPair ? joinSurrogates(unit, next) : unit);
        return at + (isPair ? 11 : 5);
    }
    // The parser takes every other character behind a backslash for itself.
    constexpr std::string_view letters = "bfnrt";
    const std::size_t letter = letters.find(literal[at]);
    bytes += letter == letters.npos ? literal[at] : "\b\f\n\r\t"[letter];
    return at + 1;
}

}  // namespace

std::string_view literalBefore(std::string_view text, std::size_t colon) {
    const std::size_t end = lastBefore(text, colon);
    if (end == 0 || end == text.npos || text[end] != '"' || isEscaped(text, end)) {
        return {};
    }
    std::size_t begin = text.rfind('"', end - 1);
    while (begin != text.npos && begin > 0 && isEscaped(text, begin)) {
        begin = text.rfind('"', begin - 1);
    }
    return begin == text.npos ? std::string_view() : text.substr(begin + 1, end - begin - 1);
}

void appendUnescaped(std::string& bytes, std::string_view literal) {
    for (std::size_t at = 0; at < literal.size();) {
        const std::size_t escape = std::min(literal.find('\\', at), literal.size());
        bytes.append(literal, at, escape - at);
        at = escape + 1 < literal.size() ? appendEscaped(bytes, literal, escape + 1) : escape + 1;
    }
}

}  // namespace DOVA
