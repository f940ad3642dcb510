#pragma once

#include <sys/stat.h>

#include <string>

namespace DOVA::log {

/// A descriptor that others own and may exchange, written to without ever waiting.
class UnwaitingFile {
public:
    explicit UnwaitingFile(int descriptor) : m_descriptor(descriptor) {}
    UnwaitingFile(const UnwaitingFile&) = delete;
    UnwaitingFile& operator=(const UnwaitingFile&) = delete;
    ~UnwaitingFile();

    /// Whether all of the bytes were written. Part of them may have been.
    bool write(const std::string& bytes);

private:
    ssize_t writeSome(const std::string& bytes);
    bool follow();
    int ownDescription(const struct stat& status) const;

    const int m_descriptor;
    int m_own = -1;
    struct stat m_followed {};
};

}  // namespace DOVA::log
