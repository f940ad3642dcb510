#pragma once

#include <algorithm>
#include <cerrno>
#include <string>

#include "jsonpad/FileDoor.h"

namespace jsonpad_test {

/// The real file system, in which the operation named by `fault` fails.
class FaultyDoor : public jsonpad::FileDoor {
public:
    std::string fault;
    int failures = 0;

    ssize_t read(int file, char* buffer, std::size_t size) override {
        return fails("read", EIO) ? -1 : FileDoor::read(file, buffer, size);
    }
    int createTemporary(std::string& pattern) override {
        return fails("create", EROFS) ? -1 : FileDoor::createTemporary(pattern);
    }
    /// "full" fails after the first piece; "interrupt" fails every other time.
    ssize_t write(int file, const char* data, std::size_t size) override {
        ++m_writes;
        if ((m_writes > 1 && fails("full", ENOSPC)) ||
            (m_writes % 2 == 1 && fails("interrupt", EINTR))) {
            return -1;
        }
        return FileDoor::write(file, data, fault.empty() ? size : std::min<std::size_t>(size, 7));
    }
    int setOwner(int file, uid_t user, gid_t group) override {
        return fails("owner", EPERM) ? -1 : FileDoor::setOwner(file, user, group);
    }
    int setMode(int file, mode_t mode) override {
        return fails("mode", EPERM) ? -1 : FileDoor::setMode(file, mode);
    }
    int sync(int file) override { return fails("sync", EIO) ? -1 : FileDoor::sync(file); }
    int close(int file) override {
        const int result = FileDoor::close(file);
        return m_writes > 0 && fails("close", EDQUOT) ? -1 : result;
    }
    int rename(const std::string& from, const std::string& to) override {
        return fails("rename", EBUSY) ? -1 : FileDoor::rename(from, to);
    }
    int mayWrite(const std::string& path) override {
        const char* operation = path.back() == '/' ? "mayWriteFolder" : "mayWriteFile";
        return fails(operation, EACCES) ? -1 : FileDoor::mayWrite(path);
    }

private:
    bool fails(const std::string& operation, int error) {
        failures += operation == fault ? 1 : 0;
        errno = operation == fault ? error : errno;
        return operation == fault;
    }

    int m_writes = 0;
};

}  // namespace jsonpad_test
