#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "../file/FileError.h"
#include "../file/TextFile.h"
#include "JsonList.h"
#include "JsonOutline.h"

namespace jsonpad {

/// A JSON object in a file, whose values can be edited one by one, at every depth of its outline.
/// Everything that is not edited keeps its exact text: order, white space, line ends, number forms,
/// escapes, equal keys.
class JsonFile {
public:
    using Kind = JsonKind;

    using Member = JsonOutline::Member;

    /// What `save` does when the file is no longer the one that was loaded or saved last.
    enum class IfChanged { Refuse, Overwrite };

    /// The file was changed or removed by another program.
    class ChangedOnDisk : public FileError {
        using FileError::FileError;
    };

    /// Reads the file. Throws `FileError`, with one sentence that names the file, when it cannot be
    /// read, could not be saved, or does not hold exactly one JSON object in UTF-8 (RFC 8259, up to
    /// `JsonScanner::depthLimit` deep; a byte-order mark is allowed): then with line and column.
    /// `door` outlives this object.
    static JsonFile load(const std::string& path, FileDoor& door = FileDoor::system());

    /// The members of the outline in their order, with their present values.
    const std::vector<Member>& members() const noexcept { return m_outline.members(); }
    /// How a value stands in the file that was loaded or saved last. REQUIRES: it is no object.
    std::string_view savedToken(std::size_t index) const { return m_outline.token(index); }

    /// Each gives a member a new value of the kind it has. False, and nothing changes, when there
    /// is no such member, it is of another kind, or a number is not written as JSON writes numbers.
    bool setString(std::size_t index, std::u16string_view text);
    bool setNumber(std::size_t index, std::u16string_view text);
    bool setBoolean(std::size_t index, bool value);
    bool setList(std::size_t index, const JsonList& list);

    /// Whether any value differs from what was loaded or saved last. A value that is edited back
    /// does not, and has its exact old text again.
    bool isModified() const noexcept { return !m_edits.empty(); }

    bool isModified(std::size_t index) const { return m_edits.count(index) > 0; }

    /// Takes back every edit since the last `load` or `save`, or those of one member.
    void revert();
    void revert(std::size_t index);

    /// The bytes that `save` writes.
    std::string text() const { return m_outline.textWith(m_edits); }

    /// Writes the file in one step (see `TextFile::replaceWith`); an unmodified one stays as it is.
    /// Throws `ChangedOnDisk` when another program changed the file and `ifChanged` says to refuse,
    /// `FileError` when it cannot be written; then file and edits are as they were. A change
    /// that another program makes in the very moment of saving is not seen.
    void save(IfChanged ifChanged = IfChanged::Refuse);

private:
    JsonFile(TextFile file, JsonOutline outline);

    bool edit(std::size_t index, Kind kind, std::u16string_view value, std::string token);

    TextFile m_file;
    JsonOutline m_outline;  ///< the text as saved, the values as edited
    JsonOutline::Edits m_edits;
};

}  // namespace jsonpad
