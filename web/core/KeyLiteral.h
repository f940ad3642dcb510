#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace DOVA {

inline bool isBlank(char character) {
    return character == ' ' || character == '\n' || character == '\t' || character == '\r';
}

/// The last place before `at` that is not blank; npos if there is none.
inline std::size_t lastBefore(std::string_view text, std::size_t at) {
    do {
        --at;
    } while (at != text.npos && isBlank(text[at]));
    return at;
}

/// The first place behind `at` that is not blank; the text's size if there is none.
inline std::size_t firstBehind(std::string_view text, std::size_t at) {
    do {
        ++at;
    } while (at < text.size() && isBlank(text[at]));
    return at;
}

/// What stands between the quotes of a key, whose colon is outside of strings; a view of nothing,
/// not even of an empty key, if there is no string before the colon.
std::string_view literalBefore(std::string_view text, std::size_t colon);

/// Appends what a string literal means, as bytes to compare: two literals give the same bytes if
/// the parser makes the same key of them. Never more bytes than the literal has. What the parser
/// refuses gives anything.
void appendUnescaped(std::string& bytes, std::string_view literal);

}  // namespace DOVA
