#pragma once

#include <string>

namespace DOVA {

inline bool isHighSurrogate(unsigned unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}

inline bool isLowSurrogate(unsigned unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

/// The character that the two halves of a pair stand for.
inline unsigned joinSurrogates(unsigned high, unsigned low) {
    return 0x10000 + ((high & 0x3FF) << 10) + (low & 0x3FF);
}

/// Appends a character as UTF-8 has it; half a surrogate pair, which UTF-8 has no bytes for,
/// likewise.
void appendUtf8(std::string& bytes, unsigned code);

}  // namespace DOVA
