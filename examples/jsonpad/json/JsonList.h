#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "JsonScanner.h"

namespace jsonpad {

/// An array of scalars while its elements are edited, added and taken out. Elements that are left
/// alone keep their exact text and the white space before them; new ones are set apart as the last
/// ones are.
class JsonList {
public:
    /// What tells an element from every other that the list ever had.
    using Id = std::size_t;

    struct Element {
        Id id;
        JsonKind kind;
        std::u16string text;  ///< what was typed, also where that is no value (yet)
        bool isValid = true;
        std::string token{};                  ///< what is written; empty for nothing
        std::optional<std::size_t> origin{};  ///< the saved element that it was
    };

    /// The elements get the identities from `firstId` on. REQUIRES: `array` is a valid list.
    explicit JsonList(std::string_view array, Id firstId = 0);

    const std::vector<Element>& elements() const noexcept { return m_elements; }
    /// Where the element stands now; nothing when it is gone.
    std::optional<std::size_t> find(Id id) const;
    /// The identity of the next element that is added.
    Id nextId() const noexcept { return m_nextId; }

    /// Edits a string, number or boolean ("true", "false"). False when the text is no value of its
    /// kind: it is kept, and the element is written as it was saved, or not at all when it is new.
    bool set(std::size_t index, const std::u16string& text);
    /// Adds an element at the end: of the last one's kind, a string where that says nothing; empty,
    /// 0 or false.
    void add();
    void remove(std::size_t index);

    bool isValid() const;

    /// The array as it is written.
    std::string text() const;
    /// What is written now is what counts as saved from here on.
    void markSaved();

private:
    std::string tokenOf(const Element& element) const;
    std::string separator(const Element& element) const;

    Id m_nextId;
    std::vector<Element> m_elements;
    std::vector<std::string> m_saved;  ///< the saved elements' tokens
    std::vector<std::string> m_gaps;   ///< what stands around them, one more; commas included
};

}  // namespace jsonpad
