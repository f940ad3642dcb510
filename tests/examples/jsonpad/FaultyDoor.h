#pragma once

#include <algorithm>
#include <cerrno>
#include <string>

#include "jsonpad/file/FileDoor.h"

namespace jsonpad_test {

/// The real file system, in which the operation named by `fault` fails.
class FaultyDoor : public jsonpad::FileDoor {
public:
    std::string fault;
    int failures = 0;
    int placesOverwritten = 0;

    ssize_t read(int file, char* buffer, std::size_t size) override {
        return fails("read", EIO) ? -1 : FileDoor::read(file, buffer, size);
    }
    int createUnnamed(const std::string& folder) override {
        return fails("create", EROFS) || fails("folder", EACCES) || fails("unnamed", EOPNOTSUPP)
                   ? -1
                   : FileDoor::createUnnamed(folder);
    }
    int openForWriting(const std::string& path) override {
        ++placesOverwritten;
        return fails("owner+open", EACCES) ? -1 : FileDoor::openForWriting(path);
    }
    int reserve(int file, std::size_t size) override {
        return fails("owner+reserve", ENOSPC) ? -1 : FileDoor::reserve(file, size);
    }
    /// "full" fails after the first piece; "interrupt" fails every other time.
    ssize_t write(int file, const char* data, std::size_t size) override {
        ++m_writes;
        // In place there is room again for what stood there.
        const bool isFull = m_writes > 1 && placesOverwritten < 2;
        if ((isFull && fails(placesOverwritten > 0 ? "owner+full" : "full", ENOSPC)) ||
            (m_writes % 2 == 1 && fails("interrupt", EINTR))) {
            return -1;
        }
        return FileDoor::write(file, data, fault.empty() ? size : std::min<std::size_t>(size, 7));
    }
    int setOwner(int file, uid_t user, gid_t group) override {
        const bool isGroupAlone = user == static_cast<uid_t>(-1);
        return fails("owner", EPERM) || (!isGroupAlone && fails("giveAway", EPERM))
                   ? -1
                   : FileDoor::setOwner(file, user, group);
    }
    int setMode(int file, mode_t mode) override {
        return fails("mode", EPERM) ? -1 : FileDoor::setMode(file, mode);
    }
    int copyAttributes(int from, int to) override {
        return fails("attributes", EPERM) ? -1 : FileDoor::copyAttributes(from, to);
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
        return fails("mayWriteFile", EACCES) ? -1 : FileDoor::mayWrite(path);
    }

private:
    /// A fault "a+b" lets both "a" and "a+b" fail.
    bool fails(const std::string& operation, int error) {
        const bool isHit = operation == fault || fault.rfind(operation + "+", 0) == 0;
        failures += isHit ? 1 : 0;
        errno = isHit ? error : errno;
        return isHit;
    }

    int m_writes = 0;
};

}  // namespace jsonpad_test
