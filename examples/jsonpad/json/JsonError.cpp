#include "JsonError.h"

#include "JsonScanner.h"

namespace jsonpad {

namespace {

bool isContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// "line L, column C" of `offset`. A line ends with LF, CR LF or CR.
std::string position(std::string_view text, std::size_t offset) {
    std::size_t line = 1;
    std::size_t column = 1;
    constexpr std::string_view mark = JsonScanner::byteOrderMark;
    std::size_t index = text.substr(0, mark.size()) == mark ? mark.size() : 0;
    for (; index < offset; ++index) {
        const bool endsLine =
            text[index] == '\n' || (text[index] == '\r' && text.substr(index + 1, 1) != "\n");
        line += endsLine ? 1U : 0U;
        column = endsLine ? 1 : column + (isContinuation(text[index]) ? 0U : 1U);
    }
    return "line " + std::to_string(line) + ", column " + std::to_string(column);
}

}  // namespace

JsonError::JsonError(std::string_view text, std::size_t offset, const std::string& sentence)
    : std::runtime_error(position(text, offset) + ": " + sentence) {}

}  // namespace jsonpad
