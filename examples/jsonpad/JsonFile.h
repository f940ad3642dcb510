#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "FileError.h"
#include "JsonScanner.h"
#include "TextFile.h"

namespace jsonpad {

/// A JSON object in a file, whose values can be edited one by one. Everything that is not edited
/// keeps its exact text: order, white space, line ends, number forms, escapes, equal keys.
class JsonFile {
public:
    using Kind = JsonKind;

    struct Member {
        std::u16string key;
        Kind kind;
        /// A string's text; a number exactly as it is written; "true", "false", "null"; an array or
        /// object on one line.
        std::u16string value;
    };

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

    /// The object's members in their order, with their present values.
    const std::vector<Member>& members() const noexcept { return m_content.members; }

    /// Each gives a member a new value of the kind it has. False, and nothing changes, when there
    /// is no such member, it is of another kind, or a number is not written as JSON writes numbers.
    bool setString(std::size_t index, std::u16string_view text);
    bool setNumber(std::size_t index, std::u16string_view text);
    bool setBoolean(std::size_t index, bool value);

    /// Whether any value differs from what was loaded or saved last. A value that is edited back
    /// does not, and has its exact old text again.
    bool isModified() const noexcept { return !m_edits.empty(); }

    /// Takes back every edit since the last `load` or `save`.
    void revert();

    /// The bytes that `save` writes.
    std::string text() const;

    /// Writes the file in one step (see `TextFile::replaceWith`); an unmodified one stays as it is.
    /// Throws `ChangedOnDisk` when another program changed the file and `ifChanged` says to refuse,
    /// `FileError` when it cannot be written; then file and edits are as they were. A change
    /// that another program makes in the very moment of saving is not seen.
    void save(IfChanged ifChanged = IfChanged::Refuse);

private:
    struct Span {
        std::size_t offset;
        std::size_t length;
    };
    /// What is in a text: `values[i]` is where the value of `members[i]` stands in it.
    struct Content {
        std::string text;
        std::vector<Member> members;
        std::vector<Span> values;
    };

    JsonFile(TextFile file, Content content);
    static Content parse(std::string text);
    static std::u16string decode(Kind kind, std::string_view token);

    std::string_view savedToken(std::size_t index) const;
    bool edit(std::size_t index, Kind kind, std::u16string_view value, std::string token);

    TextFile m_file;
    Content m_content;                           ///< the text as saved, the values as edited
    std::map<std::size_t, std::string> m_edits;  ///< the new token of each edited value
};

}  // namespace jsonpad
