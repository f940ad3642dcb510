#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace jsonpad {

/// A list is an array that holds no array and no object; any other array is nested.
enum class JsonKind { String, Number, Boolean, Null, List, Object, Nested };

/// A member of an object, as views into the scanned text: the key with its quotes, the value from
/// its first byte to its last. An element of an array has no key.
struct JsonMember {
    std::string_view key;
    std::string_view value;
    JsonKind kind;
};

/// Finds where the members of a JSON object stand in its text, and checks the whole text strictly
/// (RFC 8259): grammar, UTF-8, nothing after the object. A byte-order mark in front is allowed.
/// Nothing is decoded or copied.
class JsonScanner {
public:
    /// What may stand before the object, in UTF-8.
    static constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

    /// Deeper nesting is an error.
    static constexpr std::size_t depthLimit = 1000;

    /// The members in their order, equal keys included. The views point into `text`. Throws
    /// `JsonError` when `text` is not exactly one JSON object.
    static std::vector<JsonMember> scan(std::string_view text);

    /// The elements of an array in their order. REQUIRES: `array` is the value of a scanned member.
    static std::vector<JsonMember> elements(std::string_view array);

    /// The length of the JSON number that `text` begins with; 0 when it begins with none.
    static std::size_t numberLength(std::string_view text);

private:
    explicit JsonScanner(std::string_view text) : m_text(text) {}

    void root(std::vector<JsonMember>& members);
    void object(std::vector<JsonMember>* members);
    JsonKind array(std::vector<JsonMember>* elements);
    JsonMember member();
    JsonMember element();
    JsonKind value();
    JsonKind nested();
    void string();
    void escape();
    void character();
    JsonKind number();
    JsonKind word(std::string_view word, JsonKind kind);

    void skipSpace();
    bool take(char wanted);
    void expect(char wanted, const char* sentence);
    char peek() const { return m_at < m_text.size() ? m_text[m_at] : '\0'; }
    std::string_view since(std::size_t start) const { return m_text.substr(start, m_at - start); }
    [[noreturn]] void fail(const char* sentence) const;

    std::string_view m_text;
    std::size_t m_at = 0;
    std::size_t m_depth = 0;
};

}  // namespace jsonpad
