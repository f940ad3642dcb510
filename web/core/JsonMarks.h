#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "KeyLiteral.h"

namespace DOVA {

/// Walks over the colons and curly brackets of a JSON text, from the first to the last, those
/// inside of strings left out. Behind the first error of a text it may answer anything that stands
/// there.
///
/// Sixty-four bytes are looked at in one go, since a text is read once more by its parser and that
/// one is fast.
class JsonMarks {
public:
    /// So many bytes are looked at in one go, each of which has a bit of a mask.
    static constexpr std::size_t s_blockSize = 64;

    explicit JsonMarks(std::string_view text) : m_text(text) {}

    /// The place of the next one; the text's size when there is none any more.
    std::size_t next() {
        while (m_marks == 0) {
            if (m_next >= m_text.size()) {
                return m_text.size();
            }
            readBlock();
        }
        const std::size_t place = m_block + static_cast<std::size_t>(__builtin_ctzll(m_marks));
        m_marks &= m_marks - 1;
        return place;
    }

    /// What stands between the quotes of the key before the colon that next() answered last, as
    /// `literalBefore` tells it.
    std::string_view literal(std::size_t colon) const {
        const std::uint64_t before = m_quotes & ((std::uint64_t(1) << (colon - m_block)) - 1);
        const std::size_t end = colon - 1;
        // Nearly all keys end right before their colon, and begin in the same block.
        if (colon == m_block || (before >> (end - m_block)) != 1 || (before & (before - 1)) == 0) {
            return literalBefore(m_text, colon);
        }
        const std::uint64_t opening = before ^ (std::uint64_t(1) << (end - m_block));
        const std::size_t begin =
            m_block + s_blockSize - static_cast<std::size_t>(__builtin_clzll(opening));
        return m_text.substr(begin, end - begin);
    }

    /// Whether there was a backslash up to here.
    bool sawBackslash() const { return m_sawBackslash; }

private:
    void readBlock();
    std::uint64_t escaped(std::uint64_t backslashes);
    std::uint64_t insideStrings(std::uint64_t quotes);

    const std::string_view m_text;
    std::size_t m_block = 0;     // begin of the block that the marks are of
    std::size_t m_next = 0;      // begin of the one after it
    std::uint64_t m_marks = 0;   // those to come, a bit each
    std::uint64_t m_quotes = 0;  // the block's quotes, those in strings left out
    std::uint64_t m_escape = 0;  // 1: the next block's first character is escaped
    std::uint64_t m_string = 0;  // all bits: the next block begins inside of a string
    bool m_sawBackslash = false;
};

}  // namespace DOVA
