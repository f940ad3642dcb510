#include "JsonMarks.h"

#include <emmintrin.h>

#include <cstring>

namespace DOVA {

namespace {

using Bytes = __m128i;
constexpr int s_parts = JsonMarks::s_blockSize / sizeof(Bytes);

Bytes equal(Bytes bytes, char wanted) {
    return _mm_cmpeq_epi8(bytes, _mm_set1_epi8(wanted));
}

Bytes either(Bytes one, Bytes other) {
    return _mm_or_si128(one, other);
}

/// Sixty-four bytes, asked which of them are the wanted ones: a bit each.
class Block {
public:
    explicit Block(const char* bytes) {
        for (int i = 0; i < s_parts; ++i) {
            m_parts[i] = _mm_loadu_si128(reinterpret_cast<const Bytes*>(bytes) + i);
        }
    }

    bool hasBackslash() const {
        Bytes found = _mm_setzero_si128();
        for (const Bytes part : m_parts) {
            found = either(found, equal(part, '\\'));
        }
        return _mm_movemask_epi8(found) != 0;
    }
    std::uint64_t quotes() const {
        return bits([](Bytes part) { return equal(part, '"'); });
    }
    std::uint64_t backslashes() const {
        return bits([](Bytes part) { return equal(part, '\\'); });
    }
    std::uint64_t marks() const {
        return bits([](Bytes part) {
            return either(equal(part, ':'), either(equal(part, '{'), equal(part, '}')));
        });
    }

private:
    template <class Wanted>
    std::uint64_t bits(Wanted wanted) const {
        std::uint64_t bits = 0;
        for (int i = s_parts; i-- > 0;) {
            bits = bits << 16 | static_cast<unsigned>(_mm_movemask_epi8(wanted(m_parts[i])));
        }
        return bits;
    }

    Bytes m_parts[s_parts];
};

}  // namespace

void JsonMarks::readBlock() {
    if (m_backslashes != 0) {
        m_behindBackslash = behindLast(m_backslashes);
        m_backslashes = 0;
    }
    m_block = m_next;
    m_next += s_blockSize;
    char last[s_blockSize] = {};
    const char* bytes = m_text.data() + m_block;
    if (m_next > m_text.size()) {
        bytes = static_cast<const char*>(std::memcpy(last, bytes, m_text.size() - m_block));
    }
    const Block block(bytes);
    std::uint64_t quotes = block.quotes();
    if (m_escape != 0 || block.hasBackslash()) {
        m_backslashes = block.backslashes();
        quotes &= ~escaped(m_backslashes);
    }
    m_quotes = quotes;
    const std::uint64_t inside = insideStrings(quotes);
    m_marks = ~inside == 0 ? 0 : block.marks() & ~inside;
}

/// Which characters an escape takes along.
std::uint64_t JsonMarks::escaped(std::uint64_t backslashes) {
    std::uint64_t escaped = m_escape;
    m_escape = 0;
    for (backslashes &= ~escaped; backslashes != 0;) {
        const std::uint64_t backslash = backslashes & -backslashes;
        escaped |= backslash << 1;
        m_escape = backslash >> (s_blockSize - 1);
        backslashes &= ~(backslash | backslash << 1);
    }
    return escaped;
}

/// Which characters lie behind an odd number of quotes.
std::uint64_t JsonMarks::insideStrings(std::uint64_t quotes) {
    if (quotes == 0) {
        return m_string;
    }
    std::uint64_t inside = quotes;
    for (unsigned distance = 1; distance < s_blockSize; distance *= 2) {
        inside ^= inside << distance;
    }
    inside ^= m_string;
    m_string = 0 - (inside >> (s_blockSize - 1));
    return inside;
}

}  // namespace DOVA
