#include "FieldTexts.h"

#include <boost/locale/utf.hpp>
#include <cstddef>

namespace jsonpad {

namespace {

constexpr std::size_t s_longestField = 50'000;
constexpr std::size_t s_longestText = 2'000;

using Utf16 = boost::locale::utf::utf_traits<char16_t>;

}  // namespace

bool fitsField(std::u16string_view text) {
    if (text.size() > s_longestField || text.find_first_of(u"\r\n") != text.npos) {
        return false;
    }
    const char16_t* const end = text.data() + text.size();
    for (const char16_t* next = text.data(); next != end;) {
        if (!boost::locale::utf::is_valid_codepoint(Utf16::decode(next, end))) {
            return false;
        }
    }
    return true;
}

std::u16string shortened(const std::u16string& text) {
    if (text.size() <= s_longestText) {
        return text;
    }
    const bool cutsPair = Utf16::is_first_surrogate(text[s_longestText - 1]);
    return text.substr(0, s_longestText - (cutsPair ? 1 : 0)) + u" …";
}

}  // namespace jsonpad
