#include "FileDoor.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
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

ssize_t FileDoor::read(int file, char* buffer, std::size_t size) {
    return ::read(file, buffer, size);
}

int FileDoor::describe(int file, struct stat& description) {
    return ::fstat(file, &description);
}

int FileDoor::createTemporary(std::string& pattern) {
    return ::mkostemp(pattern.data(), O_CLOEXEC);
}

ssize_t FileDoor::write(int file, const char* data, std::size_t size) {
    return ::write(file, data, size);
}

int FileDoor::setOwner(int file, uid_t user, gid_t group) {
    return ::fchown(file, user, group);
}

int FileDoor::setMode(int file, mode_t mode) {
    return ::fchmod(file, mode);
}

int FileDoor::sync(int file) {
    return ::fsync(file);
}

int FileDoor::close(int file) {
    return ::close(file);
}

int FileDoor::rename(const std::string& from, const std::string& to) {
    return std::rename(from.c_str(), to.c_str());
}

int FileDoor::remove(const std::string& path) {
    return ::unlink(path.c_str());
}

int FileDoor::mayWrite(const std::string& path) {
    return ::access(path.c_str(), W_OK);
}

std::string FileDoor::realPath(const std::string& path) {
    const std::unique_ptr<char, void (*)(void*)> resolved(::realpath(path.c_str(), nullptr),
                                                          std::free);
    return resolved ? resolved.get() : std::string();
}

}  // namespace jsonpad
