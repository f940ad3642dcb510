#pragma once

#include <cstddef>
#include <limits>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "JsonScanner.h"

namespace jsonpad {

/// Which values of a JSON text can be edited one by one, and where they stand in it: the members of
/// the root object and, in their place, those of the objects in it. What would be too much to show
/// stays one nested value: see the limits. They hold when a text is read; edits open and close
/// none.
class JsonOutline {
public:
    /// How many objects, the root included, lie one in the other at most.
    static constexpr std::size_t depthLimit = 8;
    /// How many members the root has at most.
    static constexpr std::size_t rootLimit = 10'000;
    /// How many members below those of the root, and elements of lists, there are at most.
    static constexpr std::size_t memberLimit = 5'000;
    /// The elements of the longest list.
    static constexpr std::size_t listLimit = 200;
    /// The `parent` of the root's members.
    static constexpr std::size_t root = std::numeric_limits<std::size_t>::max();

    struct Member {
        std::u16string key;
        JsonKind kind;
        /// What it says, as `decodeJson` tells it; empty for an object, whose members say it.
        std::u16string value;
        /// The object that it is a member of, which stands before it.
        std::size_t parent = root;
    };

    /// New tokens for some members, none of them an object.
    using Edits = std::map<std::size_t, std::string>;

    /// Throws `JsonError` when the text is not exactly one JSON object, or has too many members.
    explicit JsonOutline(std::string text);

    const std::string& text() const noexcept { return m_text; }
    /// In the order of the text, equal keys included.
    const std::vector<Member>& members() const noexcept { return m_members; }
    /// How the value is written. REQUIRES: the member is no object.
    std::string_view token(std::size_t index) const;

    /// The text with other tokens in their places and every other byte as it is.
    std::string textWith(const Edits& edits) const;
    /// The outline of `textWith(edits)`, with the same members.
    JsonOutline with(const Edits& edits) const;
    /// Has a member say something else than its token.
    void say(std::size_t index, std::u16string value) { m_members[index].value = std::move(value); }

private:
    struct Span {
        std::size_t offset;
        std::size_t length;
    };

    void open(const std::vector<JsonMember>& found, std::size_t parent, std::size_t depth);
    void add(const JsonMember& found, std::size_t parent, std::size_t depth);
    bool hasRoomForList(std::string_view list);
    void openObject(const JsonMember& found, std::size_t index, std::size_t depth);

    std::string m_text;
    std::vector<Member> m_members;
    std::vector<Span> m_spans;  ///< of the members' values; those of objects are not kept up
    std::size_t m_room = memberLimit;
};

}  // namespace jsonpad
