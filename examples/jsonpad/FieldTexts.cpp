#include "FieldTexts.h"

#include <cstddef>

namespace jsonpad {

namespace {

constexpr std::size_t s_longestField = 50'000;
constexpr std::size_t s_longestText = 2'000;

bool isLeading(char16_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}
bool isTrailing(char16_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

}  // namespace

bool fitsField(std::u16string_view text) {
    if (text.size() > s_longestField || text.find_first_of(u"\r\n") != text.npos) {
        return false;
    }
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (isLeading(text[at]) && at + 1 < text.size() && isTrailing(text[at + 1])) {
            ++at;
        } else if (isLeading(text[at]) || isTrailing(text[at])) {
            return false;
        }
    }
    return true;
}

std::u16string shortened(const std::u16string& text) {
    if (text.size() <= s_longestText) {
        return text;
    }
    const std::size_t end = isLeading(text[s_longestText - 1]) ? s_longestText - 1 : s_longestText;
    return text.substr(0, end) + u" …";
}

}  // namespace jsonpad
