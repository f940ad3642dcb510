#include "TextFile.h"

#include <array>
#include <cerrno>
#include <system_error>
#include <utility>

#include "FileError.h"
#include "SuccessorFile.h"

namespace jsonpad {

TextFile::TextFile(std::string path, FileDoor& door) : m_path(std::move(path)), m_door(door) {}

std::optional<std::string> TextFile::read() {
    const OpenFile file(m_door, m_door.openForReading(m_path));
    if (!file.isOpen()) {
        if (errno == ENOENT) {
            return std::nullopt;
        }
        fail("open");
    }
    describe(file);
    resolve();
    return readAll(file);
}

void TextFile::describe(const OpenFile& file) {
    if (m_door.describe(file.get(), m_description) != 0) {
        fail("read");
    }
    if (!S_ISREG(m_description.st_mode)) {
        throw FileError("'" + m_path + "' is not a regular file");
    }
}

std::string TextFile::readAll(const OpenFile& file) const {
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
    constexpr mode_t anybody = S_IWUSR | S_IWGRP | S_IWOTH;
    if ((m_description.st_mode & anybody) == 0) {
        errno = EACCES;
        fail("write");
    }
    if (m_door.mayWrite(m_realPath) != 0) {
        fail("write");
    }
}

void TextFile::replaceWith(std::string_view bytes) {
    resolve();
    const OpenFile original(m_door, m_door.openForReading(m_realPath));
    if (original.isOpen()) {
        describe(original);
        requireWritable();
    } else if (errno != ENOENT) {
        fail("write");
    }
    const bool hasOtherNames = original.isOpen() && m_description.st_nlink > 1;
    if (hasOtherNames || replace(original, bytes) == Step::NotThisWay) {
        overwrite(bytes);
    }
}

TextFile::Step TextFile::replace(const OpenFile& original, std::string_view bytes) {
    SuccessorFile successor(m_door, m_realPath, m_description);
    if (!successor.create()) {
        if (errno == EACCES || errno == EPERM) {
            return Step::NotThisWay;
        }
        fail("write");
    }
    if (!successor.write(bytes)) {
        fail("write");
    }
    if (!successor.resemble(original)) {
        return Step::NotThisWay;
    }
    if (!successor.finish()) {
        fail("write");
    }
    if (!successor.takePlace()) {
        // Something is mounted on the file, its folder keeps it from being taken away, or there is
        // no /proc to name the new one by.
        if (errno == EBUSY || errno == EXDEV || errno == EPERM || errno == EACCES ||
            errno == ENOENT) {
            return Step::NotThisWay;
        }
        fail("replace");
    }
    keepNames();
    return Step::Done;
}

void TextFile::overwrite(std::string_view bytes) {
    std::string before;
    {
        const OpenFile original(m_door, m_door.openForReading(m_realPath));
        if (!original.isOpen()) {
            fail("write");
        }
        before = readAll(original);
    }
    const OpenFile file(m_door, m_door.openForWriting(m_realPath));
    // Room first: a full disk is no reason to touch the old bytes.
    if (!file.isOpen() || m_door.reserve(file.get(), bytes.size()) != 0) {
        fail("write");
    }
    if (!fill(file, bytes)) {
        const int reason = errno;
        const OpenFile again(m_door, m_door.openForWriting(m_realPath));
        if (!again.isOpen() || !fill(again, before)) {
            throw FileError("cannot write '" + m_path + "' and not bring back what it held");
        }
        errno = reason;
        fail("write");
    }
}

bool TextFile::fill(const OpenFile& file, std::string_view bytes) {
    return file.writeAll(bytes) && m_door.truncate(file.get(), bytes.size()) == 0 &&
           m_door.sync(file.get()) == 0;
}

void TextFile::keepNames() {
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
