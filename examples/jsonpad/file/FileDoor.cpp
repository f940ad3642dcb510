#include "FileDoor.h"

#include <fcntl.h>
#include <linux/limits.h>
#include <sys/xattr.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace jsonpad {

FileDoor& FileDoor::system() {
    static FileDoor instance;
    return instance;
}

int FileDoor::openForReading(const std::string& path) {
    // Without waiting for the other end of a pipe; files do not care.
    return ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
}

int FileDoor::openForWriting(const std::string& path) {
    return ::open(path.c_str(), O_WRONLY | O_CLOEXEC | O_NOFOLLOW);
}

int FileDoor::createUnnamed(const std::string& folder) {
    return ::open(folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0600);
}

int FileDoor::giveName(int file, const std::string& path) {
    const std::string opened = "/proc/self/fd/" + std::to_string(file);
    return ::linkat(AT_FDCWD, opened.c_str(), AT_FDCWD, path.c_str(), AT_SYMLINK_FOLLOW);
}

int FileDoor::createNamed(const std::string& path) {
    return ::open(path.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0600);
}

int FileDoor::copyAttributes(int from, int to) {
    // A folder may hand its own access list to what is made in it.
    ::fremovexattr(to, "system.posix_acl_access");
    const auto isNone = [](ssize_t size) { return size < 0 && errno == EOPNOTSUPP; };
    const ssize_t size = ::flistxattr(from, nullptr, 0);
    std::string names(size > 0 ? static_cast<std::size_t>(size) : 0, '\0');
    if (isNone(size) || names.empty()) {
        return size < 0 && !isNone(size) ? -1 : 0;
    }
    if (::flistxattr(from, names.data(), names.size()) != size) {
        return -1;
    }
    for (const char* name = names.c_str(); name < names.c_str() + size;
         name += std::strlen(name) + 1) {
        std::string value(XATTR_SIZE_MAX, '\0');
        const ssize_t length = ::fgetxattr(from, name, value.data(), value.size());
        if (length < 0 ||
            ::fsetxattr(to, name, value.data(), static_cast<std::size_t>(length), 0) != 0) {
            return -1;
        }
    }
    return 0;
}

int FileDoor::reserve(int file, std::size_t size) {
    const bool isFull = size > 0 &&
                        ::fallocate(file, FALLOC_FL_KEEP_SIZE, 0, static_cast<off_t>(size)) != 0 &&
                        (errno == ENOSPC || errno == EDQUOT || errno == EFBIG);
    return isFull ? -1 : 0;
}

std::string FileDoor::realPath(const std::string& path) {
    const std::unique_ptr<char, void (*)(void*)> resolved(::realpath(path.c_str(), nullptr),
                                                          std::free);
    return resolved ? resolved.get() : std::string();
}

}  // namespace jsonpad
