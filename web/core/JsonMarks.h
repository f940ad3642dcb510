#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace DOVA {

/// Walks over the colons and curly brackets of a JSON text, from the first to the last, those
/// inside of strings left out. Behind the first error of a text it may answer anything that stands
/// there.
///
/// Sixty-four bytes are looked at in one go, since a text is read once more by its parser and that
/// one is fast.
class JsonMarks {
public:
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
    std::uint64_t m_escape = 0;  // 1: the next block's first character is escaped
    std::uint64_t m_string = 0;  // all bits: the next block begins inside of a string
    bool m_sawBackslash = false;
};

}  // namespace DOVA
