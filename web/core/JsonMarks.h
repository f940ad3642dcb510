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
        const std::size_t begin = behindLast(opening);
        return m_text.substr(begin, end - begin);
    }

    /// The place behind the last backslash before the colon that next() answered last; 0 if there
    /// is none.
    std::size_t behindBackslash(std::size_t colon) const {
        const std::uint64_t before = m_backslashes & ((std::uint64_t(1) << (colon - m_block)) - 1);
        return before != 0 ? behindLast(before) : m_behindBackslash;
    }

private:
    void readBlock();
    std::size_t behindLast(std::uint64_t bits) const {
        return m_block + s_blockSize - static_cast<std::size_t>(__builtin_clzll(bits));
    }
    std::uint64_t escaped(std::uint64_t backslashes);
    std::uint64_t insideStrings(std::uint64_t quotes);

    const std::string_view m_text;
    std::size_t m_block = 0;            // begin of the block that the marks are of
    std::size_t m_next = 0;             // begin of the one after it
    std::uint64_t m_marks = 0;          // those to come, a bit each
    std::uint64_t m_quotes = 0;         // the block's quotes, those in strings left out
    std::uint64_t m_escape = 0;         // 1: the next block's first character is escaped
    std::uint64_t m_string = 0;         // all bits: the next block begins inside of a string
    std::uint64_t m_backslashes = 0;    // the block's
    std::size_t m_behindBackslash = 0;  // the place behind the last one of the blocks before
};

}  // namespace DOVA
