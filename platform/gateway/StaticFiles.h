#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace DOVA::gateway {

/// A file as it is to be sent.
struct StaticFile {
    std::string body;
    const char* contentType = nullptr;
    bool isGzip = false;
};

/// The files below one folder that may be served. Nothing outside the folder is reached, neither
/// by the path nor by symbolic links; hidden files, unknown kinds of file and anything but regular
/// files count as absent.
class StaticFiles {
public:
    enum class Kinds { Page, Images };

    /// An empty root holds nothing.
    StaticFiles(const std::filesystem::path& root, Kinds kinds, std::size_t maxBytes);

    /// The file of a decoded path relative to the root. `acceptsGzip`: the file "x.gz" may stand
    /// for "x".
    std::optional<StaticFile> find(std::string_view path, bool acceptsGzip) const;

    /// One regular file, whatever its name and wherever it is, and a "x.gz" beside it as above.
    static std::optional<StaticFile> read(const std::filesystem::path& file,
                                          const char* contentType, std::size_t maxBytes,
                                          bool acceptsGzip);

private:
    const char* contentType(std::string_view path) const;
    std::optional<std::string> readBelowRoot(const std::string& path) const;

    /// Without symbolic links; empty when there is no such folder.
    std::filesystem::path m_root;
    const Kinds m_kinds;
    const std::size_t m_maxBytes;
};

}  // namespace DOVA::gateway
