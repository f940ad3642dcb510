#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ContentCoding.h"

namespace DOVA::gateway {

/// A file as it is to be sent.
struct StaticFile {
    std::string body;
    const char* contentType = nullptr;
    ContentCoding coding;
};

/// The files below one folder that may be served. Nothing outside the folder is reached, neither
/// by the path nor by symbolic links; hidden files, unknown kinds of file and anything but regular
/// files count as absent.
class StaticFiles {
public:
    enum class Kinds { Page, Images };

    /// An empty root holds nothing.
    StaticFiles(const std::filesystem::path& root, Kinds kinds, std::size_t maxBytes);

    using Codings = std::vector<ContentCoding>;

    /// The file of a decoded path relative to the root. `codings`: the first of them in which there
    /// is a packed file, such as "x.gz", stands for "x".
    std::optional<StaticFile> find(std::string_view path, const Codings& codings) const;

    /// One regular file, whatever its name and wherever it is, or a packed one beside it as above.
    static std::optional<StaticFile> read(const std::filesystem::path& file,
                                          const char* contentType, std::size_t maxBytes,
                                          const Codings& codings);

private:
    const char* contentType(std::string_view path) const;
    std::optional<std::string> readBelowRoot(const std::string& path) const;

    /// Without symbolic links; empty when there is no such folder.
    std::filesystem::path m_root;
    const Kinds m_kinds;
    const std::size_t m_maxBytes;
};

}  // namespace DOVA::gateway
