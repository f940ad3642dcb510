#include "host/Utf8.h"

#include <cstddef>
#include <cstdint>

namespace host {

namespace {

constexpr char32_t s_replacement = 0xFFFD;
constexpr char32_t s_firstBeyondPlane = 0x10000;
constexpr char32_t s_last = 0x10FFFF;

bool isHigh(char16_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}

bool isLow(char16_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

char tail(char32_t code, int shift) {
    return static_cast<char>(0x80 | ((code >> shift) & 0x3F));
}

void append(std::string& bytes, char32_t code) {
    if (code < 0x80) {
        bytes += static_cast<char>(code);
    } else if (code < 0x800) {
        bytes += {static_cast<char>(0xC0 | (code >> 6)), tail(code, 0)};
    } else if (code < s_firstBeyondPlane) {
        bytes += {static_cast<char>(0xE0 | (code >> 12)), tail(code, 6), tail(code, 0)};
    } else {
        bytes +=
            {static_cast<char>(0xF0 | (code >> 18)), tail(code, 12), tail(code, 6), tail(code, 0)};
    }
}

void append(std::u16string& text, char32_t code) {
    if (code < s_firstBeyondPlane) {
        text += static_cast<char16_t>(code);
        return;
    }
    const char32_t rest = code - s_firstBeyondPlane;
    text += static_cast<char16_t>(0xD800 | (rest >> 10));
    text += static_cast<char16_t>(0xDC00 | (rest & 0x3FF));
}

/// One character of a text in UTF-8 and the bytes that it took.
struct Read {
    char32_t code;
    std::size_t length;
};

/// How a sequence of a length begins, and the smallest code that needs it.
struct Form {
    unsigned mask;
    unsigned mark;
    char32_t smallest;
};

Read read(std::string_view bytes) {
    static constexpr Form forms[] = {
        {0x80, 0x00, 0}, {0xE0, 0xC0, 0x80}, {0xF0, 0xE0, 0x800}, {0xF8, 0xF0, s_firstBeyondPlane}};
    const auto first = static_cast<unsigned char>(bytes[0]);
    for (std::size_t length = 1; length <= 4; ++length) {
        const Form& form = forms[length - 1];
        if ((first & form.mask) != form.mark || bytes.size() < length) {
            continue;
        }
        char32_t code = first & ~form.mask;
        bool isWhole = true;
        for (std::size_t index = 1; index < length; ++index) {
            const auto byte = static_cast<unsigned char>(bytes[index]);
            isWhole = isWhole && (byte & 0xC0) == 0x80;
            code = (code << 6) | (byte & 0x3F);
        }
        const bool isValid = isWhole && code >= form.smallest && code <= s_last;
        return isValid ? Read{code, length} : Read{s_replacement, 1};
    }
    return {s_replacement, 1};
}

}  // namespace

std::string toUtf8(std::u16string_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t index = 0; index < text.size(); ++index) {
        const char16_t unit = text[index];
        const bool isPair = isHigh(unit) && index + 1 < text.size() && isLow(text[index + 1]);
        append(bytes, isPair ? s_firstBeyondPlane + ((static_cast<char32_t>(unit) & 0x3FF) << 10) +
                                   (text[index + 1] & 0x3FF)
                             : unit);
        index += isPair ? 1 : 0;
    }
    return bytes;
}

std::u16string fromUtf8(std::string_view bytes) {
    std::u16string text;
    text.reserve(bytes.size());
    while (!bytes.empty()) {
        const Read next = read(bytes);
        append(text, next.code);
        bytes.remove_prefix(next.length);
    }
    return text;
}

}  // namespace host
