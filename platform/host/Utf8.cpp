#include "host/Utf8.h"

#include <boost/locale/utf.hpp>
#include <iterator>

namespace host {

namespace {

namespace utf = boost::locale::utf;
using Bytes = utf::utf_traits<char>;
using Units = utf::utf_traits<char16_t>;

constexpr utf::code_point s_replacement = 0xFFFD;

bool isCode(utf::code_point code) {
    return code != utf::illegal && code != utf::incomplete;
}

/// Whether the bytes of a lone surrogate come first, as toUtf8() writes them.
bool beginsWithSurrogate(std::string_view bytes) {
    return bytes.size() >= 3 && bytes[0] == '\xED' && (bytes[1] & '\xE0') == '\xA0' &&
           Bytes::is_trail(bytes[2]);
}

}  // namespace

std::string toUtf8(std::u16string_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (auto at = text.begin(); at != text.end();) {
        const auto unit = at;
        const utf::code_point code = Units::decode(at, text.end());
        at = isCode(code) ? at : unit + 1;
        Bytes::encode(isCode(code) ? code : *unit, std::back_inserter(bytes));
    }
    return bytes;
}

std::u16string fromUtf8(std::string_view bytes) {
    std::u16string text;
    text.reserve(bytes.size());
    while (!bytes.empty()) {
        auto end = bytes.begin();
        utf::code_point code = Bytes::decode(end, bytes.end());
        if (!isCode(code)) {
            end = bytes.begin();
            code = beginsWithSurrogate(bytes) ? Bytes::decode_valid(end) : (++end, s_replacement);
        }
        Units::encode(code, std::back_inserter(text));
        bytes.remove_prefix(static_cast<std::size_t>(end - bytes.begin()));
    }
    return text;
}

}  // namespace host
