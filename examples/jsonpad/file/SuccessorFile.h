#pragma once

#include <string>
#include <string_view>

#include "OpenFile.h"

namespace jsonpad {

/// A new file that is to stand in the place of another one, in the same folder. It has no name
/// until it is whole, so a crash leaves nothing behind; where the file system cannot do that, its
/// name is always the same one, and the next try removes what a crash left.
class SuccessorFile {
public:
    /// `path` is the other file's, without symbolic links; `description` tells about it. Nothing is
    /// made yet. `door` outlives this object.
    SuccessorFile(FileDoor& door, std::string path, const struct stat& description);
    SuccessorFile(const SuccessorFile&) = delete;
    SuccessorFile& operator=(const SuccessorFile&) = delete;
    /// A file that did not take the place is gone.
    ~SuccessorFile();

    /// Each is false, with `errno`, when the system refuses; the other file is as it was then.
    /// In this order:
    bool create();
    bool write(std::string_view bytes) { return m_file.writeAll(bytes); }
    /// Takes over group, mode, extended attributes and access lists of `original`, and its owner
    /// where this process may give files away; another owner gets no bits that run as the owner.
    bool resemble(const OpenFile& original);
    /// From here on the bytes outlive a power cut.
    bool finish() { return m_door.sync(m_file.get()) == 0; }
    bool takePlace();

private:
    bool takeOwnership(mode_t& mode);
    bool giveName();

    FileDoor& m_door;
    const std::string m_path;
    const std::string m_temporary;
    const struct stat& m_description;
    OpenFile m_file;
    bool m_isNamed = false;
};

}  // namespace jsonpad
