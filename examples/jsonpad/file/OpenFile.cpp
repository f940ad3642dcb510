#include "OpenFile.h"

#include <cerrno>
#include <utility>

namespace jsonpad {

bool OpenFile::take(int file) noexcept {
    m_file = file;
    return isOpen();
}

bool OpenFile::writeAll(std::string_view bytes) const {
    while (!bytes.empty()) {
        const ssize_t count = m_door.write(m_file, bytes.data(), bytes.size());
        if (count >= 0) {
            bytes.remove_prefix(static_cast<std::size_t>(count));
        } else if (errno != EINTR) {
            return false;
        }
    }
    return true;
}

int OpenFile::close() noexcept {
    const int file = std::exchange(m_file, -1);
    return file >= 0 ? m_door.close(file) : 0;
}

}  // namespace jsonpad
