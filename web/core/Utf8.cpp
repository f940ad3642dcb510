#include "Utf8.h"

namespace DOVA {

namespace {

char byte(unsigned mark, unsigned code, unsigned shift) {
    return static_cast<char>(mark | (code >> shift & 0x3F));
}

}  // namespace

void appendUtf8(std::string& bytes, unsigned code) {
    if (code < 0x80) {
        bytes += static_cast<char>(code);
    } else if (code < 0x800) {
        bytes += {byte(0xC0, code, 6), byte(0x80, code, 0)};
    } else if (code < 0x10000) {
        bytes += {byte(0xE0, code >> 12, 0), byte(0x80, code, 6), byte(0x80, code, 0)};
    } else {
        bytes += {byte(0xF0, code >> 18, 0), byte(0x80, code, 12), byte(0x80, code, 6),
                  byte(0x80, code, 0)};
    }
}

}  // namespace DOVA
