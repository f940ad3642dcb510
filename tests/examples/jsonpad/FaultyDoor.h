#pragma once

#include <algorithm>
#include <cerrno>
#include <string>

#include "jsonpad/FileDoor.h"

namespace jsonpad_test {

/// The real file system, in which one operation fails.
class FaultyDoor : public jsonpad::FileDoor {
public:
    enum class Fault {
        None,
        Open,
        Read,
        CreateTemporary,
        Write,             ///< the disk is full after `roomLeft` bytes
        InterruptedWrite,  ///< every other call, and one byte at a time
        SetOwner,
        SetMode,
        Sync,
        Close,  ///< of a file that was written
        Rename,
        MayWriteFile,
        MayWriteFolder
    };

    Fault fault = Fault::None;
    std::size_t roomLeft = 10;

    int openForReading(const std::string& path) override {
        return fails(Fault::Open, EMFILE) ? -1 : FileDoor::openForReading(path);
    }
    ssize_t read(int file, char* buffer, std::size_t size) override {
        return fails(Fault::Read, EIO) ? -1 : FileDoor::read(file, buffer, size);
    }
    int createTemporary(std::string& pattern) override {
        return fails(Fault::CreateTemporary, EROFS) ? -1 : FileDoor::createTemporary(pattern);
    }
    ssize_t write(int file, const char* data, std::size_t size) override {
        ++m_writes;
        if (m_writes % 2 == 1 && fails(Fault::InterruptedWrite, EINTR)) {
            return -1;
        }
        const std::size_t room = fault == Fault::Write              ? roomLeft
                                 : fault == Fault::InterruptedWrite ? 1
                                                                    : size;
        if (room == 0 && fails(Fault::Write, ENOSPC)) {
            return -1;
        }
        const ssize_t written = FileDoor::write(file, data, std::min(size, room));
        roomLeft -= std::min(roomLeft, static_cast<std::size_t>(std::max<ssize_t>(written, 0)));
        return written;
    }
    int setOwner(int file, uid_t user, gid_t group) override {
        return fails(Fault::SetOwner, EPERM) ? -1 : FileDoor::setOwner(file, user, group);
    }
    int setMode(int file, mode_t mode) override {
        return fails(Fault::SetMode, EPERM) ? -1 : FileDoor::setMode(file, mode);
    }
    int sync(int file) override { return fails(Fault::Sync, EIO) ? -1 : FileDoor::sync(file); }
    int close(int file) override {
        const int result = FileDoor::close(file);
        return m_writes > 0 && fails(Fault::Close, EDQUOT) ? -1 : result;
    }
    int rename(const std::string& from, const std::string& to) override {
        return fails(Fault::Rename, EBUSY) ? -1 : FileDoor::rename(from, to);
    }
    int mayWrite(const std::string& path) override {
        const bool isFolder = path.back() == '/';
        return fails(isFolder ? Fault::MayWriteFolder : Fault::MayWriteFile, EACCES)
                   ? -1
                   : FileDoor::mayWrite(path);
    }

private:
    bool fails(Fault operation, int error) {
        errno = operation == fault ? error : errno;
        return operation == fault;
    }

    int m_writes = 0;
};

}  // namespace jsonpad_test
