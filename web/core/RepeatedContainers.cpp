#include "RepeatedContainers.h"

#include <emmintrin.h>

#include <algorithm>
#include <functional>
#include <limits>
#include <tuple>

#include "KeyLiteral.h"

namespace DOVA {

namespace {

// How deep the parser goes before it gives a text up.
constexpr std::size_t s_deepest = 1024;

// Up to so many members the parser's sorting keeps in order where they have one key.
constexpr std::size_t s_sortedInOrder = 16;
constexpr std::size_t s_anyNumber = std::numeric_limits<std::size_t>::max();

// Up to so many keys are compared each with each, which is faster than hashing them.
constexpr std::size_t s_few = 8;

/// Which of sixteen bytes are '[' or '{', a bit each.
unsigned bracketsAmong(const char* bytes) {
    // The two differ in one bit.
    const __m128i difference = _mm_set1_epi8('[' ^ '{');
    const __m128i wanted = _mm_set1_epi8('[' | '{');
    const __m128i read = _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes));
    return static_cast<unsigned>(
        _mm_movemask_epi8(_mm_cmpeq_epi8(_mm_or_si128(read, difference), wanted)));
}

/// The first '[' or '{' at or behind `from`; the text's size if there is none.
std::size_t findBracket(std::string_view text, std::size_t from) {
    constexpr std::size_t step = sizeof(__m128i);
    if (text.size() < step) {
        return std::min(text.find_first_of("[{", from), text.size());
    }
    for (; from + step <= text.size(); from += step) {
        if (const unsigned hits = bracketsAmong(text.data() + from)) {
            return from + static_cast<std::size_t>(__builtin_ctz(hits));
        }
    }
    // The rest stands at the end of the last sixteen.
    const std::size_t last = text.size() - step;
    const unsigned hits =
        from < text.size() ? bracketsAmong(text.data() + last) >> (from - last) : 0;
    return hits != 0 ? from + static_cast<std::size_t>(__builtin_ctz(hits)) : text.size();
}

bool hasContainerAsValue(std::string_view text) {
    for (auto at = findBracket(text, 1); at < text.size(); at = findBracket(text, at + 1)) {
        const std::size_t before = lastBefore(text, at);
        if (before != text.npos && text[before] == ':') {
            return true;
        }
    }
    return false;
}

bool hasMoreColons(std::string_view text, std::size_t count) {
    std::size_t at = text.find(':');
    while (at != text.npos && count-- > 0) {
        at = text.find(':', at + 1);
    }
    return at != text.npos;
}

bool holdsContainer(std::string_view text, std::size_t colon) {
    const std::size_t at = firstBehind(text, colon);
    return at < text.size() && (text[at] == '{' || text[at] == '[');
}

/// Keys of one length mostly differ in their last character, which takes no call to see.
bool isSame(std::string_view key, std::string_view other) {
    return key.size() == other.size() &&
           (key.empty() || (key.back() == other.back() && key == other));
}

/// True if two literals of keys differ before either has an escape; false if that takes a closer
/// look.
bool differEarly(std::string_view literal, std::string_view other) {
    const std::size_t most = std::min(literal.size(), other.size());
    std::size_t at = 0;
    while (at < most && literal[at] == other[at] && literal[at] != '\\') {
        ++at;
    }
    return at < most ? literal[at] != '\\' && other[at] != '\\' : literal.size() != other.size();
}

}  // namespace

bool RepeatedContainers::occurIn(std::string_view text) {
    return hasContainerAsValue(text) && RepeatedContainers(text, s_anyNumber, nullptr).walk();
}

bool RepeatedContainers::occurOrMayMixIn(std::string_view text) {
    return (hasMoreColons(text, s_sortedInOrder) || hasContainerAsValue(text)) &&
           RepeatedContainers(text, s_sortedInOrder, nullptr).walk();
}

std::vector<RepeatedContainers::Member> RepeatedContainers::replacedIn(std::string_view text) {
    std::vector<Member> members;
    RepeatedContainers(text, s_sortedInOrder, &members).walk();
    return members;
}

bool RepeatedContainers::walk() {
    for (auto at = m_marks.next(); at < m_text.size() && m_open.size() <= s_deepest;
         at = m_marks.next()) {
        if (m_text[at] == ':') {
            addColon(at);
        } else if (m_text[at] == '{') {
            m_open.push_back({m_colons.size(), false});
        } else if (!m_open.empty() && endObject()) {
            return true;
        }
    }
    return false;
}

void RepeatedContainers::addColon(std::size_t colon) {
    const std::string_view literal = m_marks.literal(colon);
    const bool isEscaped = m_text.data() + m_marks.behindBackslash(colon) > literal.data();
    m_colons.push_back({colon, literal, isEscaped});
    if (!m_open.empty() && holdsContainer(m_text, colon)) {
        m_open.back().holds = true;
    }
}

/// True if it repeats a key.
bool RepeatedContainers::endObject() {
    const Object object = m_open.back();
    m_open.pop_back();
    bool repeated = false;
    m_mayMix = m_colons.size() - object.firstColon > m_inOrder;
    if (object.holds || m_mayMix) {
        repeated = readKeys(object.firstColon) &&
                   (m_keys.size() <= s_few ? isRepeatedAmongFew() : isRepeatedAmongMany());
    }
    m_colons.resize(object.firstColon);
    return repeated;
}

/// False if it is clear already that no two of them are the same.
bool RepeatedContainers::readKeys(std::size_t firstColon) {
    std::size_t escapedSize = 0;
    m_keys.clear();
    for (std::size_t index = firstColon; index < m_colons.size(); ++index) {
        const Colon& colon = m_colons[index];
        escapedSize += colon.isEscaped ? colon.literal.size() : 0;
        m_keys.push_back({colon.literal, 0, index});
    }
    if (escapedSize > 0) {
        if (m_keys.size() <= s_few && allDifferEarly()) {
            return false;
        }
        unescapeKeys(escapedSize);
    }
    return true;
}

bool RepeatedContainers::allDifferEarly() const {
    for (auto key = m_keys.begin(); key != m_keys.end(); ++key) {
        const bool differs = std::all_of(key + 1, m_keys.end(), [&](const Key& other) {
            return differEarly(key->text, other.text);
        });
        if (!differs) {
            return false;
        }
    }
    return true;
}

/// `size` is that of the escaped ones, together.
void RepeatedContainers::unescapeKeys(std::size_t size) {
    m_unescaped.clear();
    m_unescaped.reserve(size);  // so that nothing moves that a key views
    for (Key& key : m_keys) {
        if (m_colons[key.index].isEscaped) {
            const std::size_t begin = m_unescaped.size();
            appendUnescaped(m_unescaped, key.text);
            key.text = std::string_view(m_unescaped).substr(begin);
        }
    }
}

bool RepeatedContainers::isRepeatedAmongFew() {
    for (auto key = m_keys.begin(); key != m_keys.end(); ++key) {
        const auto next = std::find_if(
            key + 1, m_keys.end(), [&](const Key& other) { return isSame(key->text, other.text); });
        if (next != m_keys.end() && meet(key->index, next->index)) {
            return true;
        }
    }
    return false;
}

bool RepeatedContainers::isRepeatedAmongMany() {
    sieveKeys();
    std::sort(m_keys.begin(), m_keys.end(), [](const Key& one, const Key& other) {
        return std::tie(one.hash, one.text, one.index) <
               std::tie(other.hash, other.text, other.index);
    });
    for (std::size_t i = 1; i < m_keys.size(); ++i) {
        if (m_keys[i - 1].text == m_keys[i].text && meet(m_keys[i - 1].index, m_keys[i].index)) {
            return true;
        }
    }
    return false;
}

/// Takes out nearly every key that stands alone: a hash has a bit, and only keys that share theirs
/// stay. A page that makes its keys collide has them sorted, and no more.
void RepeatedContainers::sieveKeys() {
    std::size_t words = 16;
    while (words * 4 < m_keys.size()) {
        words *= 2;
    }
    m_once.assign(words, 0);
    m_again.assign(words, 0);
    for (Key& key : m_keys) {
        key.hash = std::hash<std::string_view>()(key.text);
        const std::size_t word = key.hash / 64 & (words - 1);
        const std::uint64_t bit = std::uint64_t(1) << key.hash % 64;
        m_again[word] |= m_once[word] & bit;
        m_once[word] |= bit;
    }
    const auto standsAlone = [&](const Key& key) {
        return (m_again[key.hash / 64 & (words - 1)] >> key.hash % 64 & 1) == 0;
    };
    m_keys.erase(std::remove_if(m_keys.begin(), m_keys.end(), standsAlone), m_keys.end());
}

/// A key and the next time that its object has it, by their colons. True ends the walk.
bool RepeatedContainers::meet(std::size_t index, std::size_t next) {
    if (!m_replaced) {
        return m_mayMix || holdsContainer(m_text, m_colons[index].place) ||
               holdsContainer(m_text, m_colons[next].place);
    }
    m_replaced->push_back({beginOfKey(index), beginOfKey(index + 1)});
    return false;
}

std::size_t RepeatedContainers::beginOfKey(std::size_t index) const {
    return static_cast<std::size_t>(m_colons[index].literal.data() - m_text.data()) - 1;
}

}  // namespace DOVA
