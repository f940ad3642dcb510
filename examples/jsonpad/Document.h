#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "JsonFile.h"

namespace jsonpad {

/// The file as a person edits it: what stands in each field, also where that is no value (yet).
class Document {
public:
    explicit Document(JsonFile file) : m_file(std::move(file)) {}

    const std::vector<JsonFile::Member>& members() const { return m_file.members(); }

    /// What the member's field shows: its value, or the text that is not the number it has to be.
    const std::u16string& text(std::size_t member) const;

    /// Takes over what was typed or switched. False when the text is not a number where one has to
    /// be: it is kept, and the number counts as unedited until it is one.
    bool enter(std::size_t member, const std::u16string& text);
    bool enter(std::size_t member, bool value);

    /// Whether anything differs from the file.
    bool isModified() const { return m_file.isModified() || !m_notNumbers.empty(); }

    /// The members whose fields differ from the file, in their order.
    std::vector<std::size_t> modified() const;

    /// The members whose texts are not the numbers they have to be, and those texts.
    const std::map<std::size_t, std::u16string>& notNumbers() const { return m_notNumbers; }

    /// The names of some members, the first few at least, as a sentence lists them; UTF-8.
    std::string names(const std::vector<std::size_t>& members) const;

    /// Writes what can be written; texts that are not numbers stay behind, modified. Throws as
    /// `JsonFile::save` does.
    void save(JsonFile::IfChanged ifChanged);

    /// Takes everything back. Gives the members whose fields have to show something else now.
    std::vector<std::size_t> revert();

private:
    void remember(std::size_t member);

    JsonFile m_file;
    std::map<std::size_t, std::u16string> m_saved;  ///< the saved values of what was touched
    std::map<std::size_t, std::u16string> m_notNumbers;
};

}  // namespace jsonpad
