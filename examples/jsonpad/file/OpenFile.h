#pragma once

#include <string_view>

#include "FileDoor.h"

namespace jsonpad {

/// A descriptor that is closed in the end.
class OpenFile {
public:
    explicit OpenFile(FileDoor& door, int file = -1) noexcept : m_door(door), m_file(file) {}
    ~OpenFile() { close(); }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    int get() const noexcept { return m_file; }
    bool isOpen() const noexcept { return m_file >= 0; }
    /// REQUIRES: nothing is open. Whether `file` is a descriptor.
    bool take(int file) noexcept;
    /// Writes all of the bytes from where the last ones ended. False with `errno`.
    bool writeAll(std::string_view bytes) const;
    /// The descriptor is gone afterwards, also when the system reports an error.
    int close() noexcept;

private:
    FileDoor& m_door;
    int m_file;
};

}  // namespace jsonpad
