#pragma once

#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>

#include <cstddef>
#include <cstdio>
#include <string>

namespace jsonpad {

/// The one door to the operating system's files: each operation is the system call of that name,
/// with its results and `errno`. Tests put a faulty door in its place.
class FileDoor {
public:
    FileDoor() = default;
    FileDoor(const FileDoor&) = delete;
    FileDoor& operator=(const FileDoor&) = delete;
    virtual ~FileDoor() = default;

    /// The real one; lives as long as the process.
    static FileDoor& system();

    virtual int openForReading(const std::string& path);
    virtual ssize_t read(int file, char* buffer, std::size_t size) {
        return ::read(file, buffer, size);
    }
    virtual int describe(int file, struct stat& description) { return ::fstat(file, &description); }
    /// Of a file that is there, which keeps its bytes; not through a symbolic link.
    virtual int openForWriting(const std::string& path);
    /// A file to write in `folder`, gone when it is closed; `EOPNOTSUPP` where there are none.
    virtual int createUnnamed(const std::string& folder);
    /// Gives such a file a name, which must be new.
    virtual int giveName(int file, const std::string& path);
    /// A file to write that must be new.
    virtual int createNamed(const std::string& path);
    virtual ssize_t write(int file, const char* data, std::size_t size) {
        return ::write(file, data, size);
    }
    virtual int setOwner(int file, uid_t user, gid_t group) { return ::fchown(file, user, group); }
    virtual int setMode(int file, mode_t mode) { return ::fchmod(file, mode); }
    /// Gives `to` every extended attribute of `from`, access lists among them. Where the file
    /// system has none there is nothing to do.
    virtual int copyAttributes(int from, int to);
    /// Has room for a file of that size without changing it; 0 where that cannot be known.
    virtual int reserve(int file, std::size_t size);
    virtual int truncate(int file, std::size_t size) {
        return ::ftruncate(file, static_cast<off_t>(size));
    }
    virtual int sync(int file) { return ::fsync(file); }
    virtual int close(int file) { return ::close(file); }
    virtual int rename(const std::string& from, const std::string& to) {
        return std::rename(from.c_str(), to.c_str());
    }
    virtual int remove(const std::string& path) { return ::unlink(path.c_str()); }
    /// 0 when this process may write to the file, or make files in the folder.
    virtual int mayWrite(const std::string& path) { return ::access(path.c_str(), W_OK); }
    /// The path without symbolic links; empty with `errno` when there is no such file.
    virtual std::string realPath(const std::string& path);
};

}  // namespace jsonpad
