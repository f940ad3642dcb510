#pragma once

#include <sys/stat.h>
#include <sys/types.h>

#include <cstddef>
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
    virtual ssize_t read(int file, char* buffer, std::size_t size);
    virtual int describe(int file, struct stat& description);
    /// Replaces the six X at the end of `pattern` by what makes the name new.
    virtual int createTemporary(std::string& pattern);
    virtual ssize_t write(int file, const char* data, std::size_t size);
    virtual int setOwner(int file, uid_t user, gid_t group);
    virtual int setMode(int file, mode_t mode);
    virtual int sync(int file);
    virtual int close(int file);
    virtual int rename(const std::string& from, const std::string& to);
    virtual int remove(const std::string& path);
    /// 0 when this process may write to the file, or make files in the folder.
    virtual int mayWrite(const std::string& path);
    /// The path without symbolic links; empty with `errno` when there is no such file.
    virtual std::string realPath(const std::string& path);
};

}  // namespace jsonpad
