#pragma once

#include <sys/stat.h>

#include <filesystem>
#include <string>

namespace DOVA::runtime {

/// The file that keeps a program's token from start to start.
class TokenFile {
public:
    explicit TokenFile(std::filesystem::path path) : m_path(std::move(path)) {}

    /// The token without white space around it; empty when the file is missing or empty. Throws
    /// StartError when it cannot be read or is too long for a token, or when others may read it.
    std::string read() const;

    /// Makes the file hold the token, for its owner only. Throws StartError.
    void write(const std::string& token) const;

private:
    void requirePrivate(const struct stat& status) const;
    [[noreturn]] void refuse(const char* sentence) const;
    [[noreturn]] void fail(const char* action, int error) const;

    std::filesystem::path m_path;
};

}  // namespace DOVA::runtime
