#include "TextFile.h"

#include <array>
#include <cerrno>
#include <system_error>
#include <utility>

#include "FileError.h"

namespace jsonpad {

/// A descriptor that is closed in the end.
class TextFile::OpenFile {
public:
    OpenFile(FileDoor& door, int file) noexcept : m_door(door), m_file(file) {}
    ~OpenFile() { close(); }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    int get() const noexcept { return m_file; }
    bool isOpen() const noexcept { return m_file >= 0; }
    /// The descriptor is gone afterwards, also when the system reports an error.
    int close() noexcept {
        const int file = std::exchange(m_file, -1);
        return file >= 0 ? m_door.close(file) : 0;
    }

private:
    FileDoor& m_door;
    int m_file;
};

TextFile::TextFile(std::string path, FileDoor& door) : m_path(std::move(path)), m_door(door) {}

std::optional<std::string> TextFile::read() {
    OpenFile file(m_door, m_door.openForReading(m_path));
    if (!file.isOpen()) {
        if (errno == ENOENT) {
            return std::nullopt;
        }
        fail("open");
    }
    if (m_door.describe(file.get(), m_description) != 0) {
        fail("read");
    }
    if (!S_ISREG(m_description.st_mode)) {
        throw FileError("'" + m_path + "' is not a regular file");
    }
    resolve();
    return readAll(file);
}

std::string TextFile::readAll(OpenFile& file) {
    std::string result;
    std::array<char, 65536> buffer{};
    while (true) {
        const ssize_t count = m_door.read(file.get(), buffer.data(), buffer.size());
        if (count == 0) {
            return result;
        }
        if (count > 0) {
            result.append(buffer.data(), static_cast<std::size_t>(count));
        } else if (errno != EINTR) {
            fail("read");
        }
        if (result.size() > sizeLimit) {
            throw FileError("'" + m_path + "' is larger than 64 MiB");
        }
    }
}

void TextFile::requireWritable() const {
    // Replacing needs only the folder; but a file that is marked read-only is not to be changed.
    if (m_door.mayWrite(m_realPath) != 0 || m_door.mayWrite(folder()) != 0) {
        fail("write");
    }
}

void TextFile::replaceWith(std::string_view bytes) {
    resolve();
    std::string temporary = folder() + ".jsonpad-XXXXXX";
    OpenFile file(m_door, m_door.createTemporary(temporary));
    if (!file.isOpen()) {
        fail("write");
    }
    try {
        fill(file, bytes);
        keepNames(temporary);
    } catch (const FileError&) {
        m_door.remove(temporary);
        throw;
    }
}

void TextFile::fill(OpenFile& file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = m_door.write(file.get(), bytes.data(), bytes.size());
        if (count >= 0) {
            bytes.remove_prefix(static_cast<std::size_t>(count));
        } else if (errno != EINTR) {
            fail("write");
        }
    }
    // Only a privileged process may give a file away. First, for it may take bits from the mode.
    static_cast<void>(m_door.setOwner(file.get(), m_description.st_uid, m_description.st_gid));
    if (m_door.setMode(file.get(), m_description.st_mode & 07777U) != 0 ||
        m_door.sync(file.get()) != 0 || file.close() != 0) {
        fail("write");
    }
}

void TextFile::keepNames(const std::string& temporary) {
    if (m_door.rename(temporary, m_realPath) != 0) {
        fail("replace");
    }
    // The file is replaced; without this a power cut may bring the old one back, whole, so that
    // file systems that cannot do it are no error.
    const OpenFile names(m_door, m_door.openForReading(folder()));
    if (names.isOpen()) {
        static_cast<void>(m_door.sync(names.get()));
    }
}

std::string TextFile::folder() const {
    return m_realPath.substr(0, m_realPath.rfind('/') + 1);
}

void TextFile::resolve() {
    // A file that is gone comes back where it was.
    std::string resolved = m_door.realPath(m_path);
    if (!resolved.empty()) {
        m_realPath = std::move(resolved);
    } else if (m_realPath.empty()) {
        fail("open");
    }
}

void TextFile::fail(const char* action) const {
    throw FileError("cannot " + std::string(action) + " '" + m_path +
                    "': " + std::generic_category().message(errno));
}

}  // namespace jsonpad
