#pragma once

#include <sys/stat.h>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "FileDoor.h"

namespace jsonpad {

/// A file that is read whole and replaced whole. A symbolic link is followed to the file it names,
/// which is what gets replaced; the link stays.
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

    /// Throws `FileError` unless `replaceWith` is allowed to this process.
    void requireWritable() const;

    /// Replaces the content in one step: whoever reads the file, even after a power cut, finds the
    /// old bytes or the new ones, whole. Keeps the mode, and owner and group where the system lets
    /// it; other names (hard links) keep the old file. Throws `FileError` when it fails; then the
    /// file is untouched and nothing is left beside it. REQUIRES: `read` found the file once.
    void replaceWith(std::string_view bytes);

private:
    class OpenFile;

    std::string folder() const;
    void resolve();
    std::string readAll(OpenFile& file);
    void fill(OpenFile& file, std::string_view bytes);
    void keepNames(const std::string& temporary);
    [[noreturn]] void fail(const char* action) const;

    std::string m_path;
    FileDoor& m_door;
    std::string m_realPath;
    struct stat m_description {};
};

}  // namespace jsonpad
