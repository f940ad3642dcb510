#pragma once

#include <sys/stat.h>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "OpenFile.h"

namespace jsonpad {

/// A file that is read whole and written whole. A symbolic link is followed to the file it names,
/// which is what gets written; the link stays.
class TextFile {
public:
    /// Bigger files are refused.
    static constexpr std::size_t sizeLimit = std::size_t{64} << 20U;

    /// Touches nothing yet. `door` outlives this object.
    TextFile(std::string path, FileDoor& door);

    /// The name as it was given.
    const std::string& path() const noexcept { return m_path; }

    /// The bytes of the file; nothing when there is no such file. Throws `FileError` for a folder,
    /// device or pipe, for a file that is too big, and when it cannot be read.
    std::optional<std::string> read();

    /// Throws `FileError` when this process may not write to the file, or the file is marked as not
    /// to be written to by anybody, also for a process that may do everything.
    void requireWritable() const;

    /// Gives the file another content. Whoever has the file keeps it: group, mode, extended
    /// attributes and access lists stay, and the owner where this process may give files away.
    ///
    /// In one step where that goes: whoever reads the file, even after a power cut, finds the old
    /// bytes or the new ones, whole. Else in place: a file with several names (hard links), one
    /// whose group or attributes a new file cannot be given, or in a folder that may not be
    /// written to. Then a power cut in that moment may leave a mixture; any other failure brings
    /// the old bytes back.
    ///
    /// Throws `FileError` when it fails, also when the file has become read-only meanwhile; then
    /// the file is as it was and nothing is left beside it. REQUIRES: `read` found the file once.
    void replaceWith(std::string_view bytes);

private:
    enum class Step { Done, NotThisWay };

    std::string folder() const;
    void resolve();
    void describe(const OpenFile& file);
    std::string readAll(const OpenFile& file) const;
    Step replace(const OpenFile& original, std::string_view bytes);
    void overwrite(std::string_view bytes);
    bool fill(const OpenFile& file, std::string_view bytes);
    void keepNames();
    [[noreturn]] void fail(const char* action) const;

    std::string m_path;
    FileDoor& m_door;
    std::string m_realPath;
    struct stat m_description {};
};

}  // namespace jsonpad
