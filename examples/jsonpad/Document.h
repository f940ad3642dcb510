#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "json/JsonFile.h"
#include "json/JsonList.h"

namespace jsonpad {

/// The file as a user edits it: what stands in each field, also where that is no value (yet).
class Document {
public:
    /// A value that has a field of its own: a member, or an element of a member that is a list. An
    /// element is named by its identity, for its position changes with every one that goes before
    /// it: what was typed into a field is never another element's.
    struct Place {
        std::size_t member = 0;
        std::optional<JsonList::Id> element{};
    };

    explicit Document(JsonFile file);

    const std::vector<JsonFile::Member>& members() const { return m_file.members(); }
    /// The elements of a member that is a list, as they are edited.
    const std::vector<JsonList::Element>& elements(std::size_t member) const;

    /// Whether there is such a value still; an element may have been taken out, or reverted.
    bool contains(const Place& place) const;
    /// REQUIRES: `contains(place)`.
    JsonKind kind(const Place& place) const;
    /// What the field shows: the value, or the text that is not the number it has to be; empty for
    /// an element that is gone.
    const std::u16string& text(const Place& place) const;
    bool isValid(const Place& place) const;

    /// Takes over what was typed, chosen or switched. False when the text is not a number where one
    /// has to be: it is kept, and the number counts as unedited until it is one. False, too, for an
    /// element that is gone: nothing changes.
    bool enter(const Place& place, const std::u16string& text);
    /// Its own name, for a text in quotes would rather become a bool than a string.
    bool turn(const Place& place, bool isOn);

    /// Adds an element to the end of a list, or takes one out, if it is still there.
    void addElement(std::size_t list);
    void removeElement(std::size_t list, JsonList::Id element);

    /// Whether anything differs from the file.
    bool isModified() const { return m_file.isModified() || !m_invalid.empty(); }
    /// The members whose fields differ from the file, in their order.
    std::vector<std::size_t> modified() const;
    /// The members in whose fields texts are not the numbers they have to be.
    const std::set<std::size_t>& invalid() const { return m_invalid; }

    /// The keys of the objects around a member, from the root's down, and its own.
    std::vector<std::u16string> path(std::size_t member) const;
    /// The paths of some members, the first few at least, as a sentence lists them; UTF-8.
    std::string names(const std::vector<std::size_t>& listed) const;

    /// Writes what can be written; texts that are not numbers stay behind, modified. Throws as
    /// `JsonFile::save` does.
    void save(JsonFile::IfChanged ifChanged);

    /// Takes everything back. Gives the members whose fields have to show something else now.
    std::vector<std::size_t> revert();

private:
    const JsonList::Element* element(const Place& place) const;
    bool enterNumber(std::size_t member, const std::u16string& text);
    void takeList(std::size_t member);
    std::string name(std::size_t member) const;

    JsonFile m_file;
    std::map<std::size_t, JsonList> m_lists;
    std::map<std::size_t, std::u16string> m_notNumbers;
    std::set<std::size_t> m_invalid;
};

}  // namespace jsonpad
