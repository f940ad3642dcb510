#include "StaticFiles.h"

#include <algorithm>
#include <fstream>
#include <system_error>

namespace DOVA::gateway {

namespace {

struct FileKind {
    std::string_view extension;
    const char* contentType;
    bool isImage;
};

constexpr FileKind s_fileKinds[] = {
    {".html", "text/html; charset=utf-8", false},
    {".js", "text/javascript; charset=utf-8", false},
    {".css", "text/css; charset=utf-8", false},
    {".json", "application/json", false},
    {".map", "application/json", false},
    {".webmanifest", "application/manifest+json", false},
    {".txt", "text/plain; charset=utf-8", false},
    {".woff2", "font/woff2", false},
    {".svg", "image/svg+xml", true},
    {".png", "image/png", true},
    {".gif", "image/gif", true},
    {".jpg", "image/jpeg", true},
    {".jpeg", "image/jpeg", true},
    {".webp", "image/webp", true},
    {".ico", "image/vnd.microsoft.icon", true},
};

/// Whether every part of the path is a plain name: not empty, not hidden, no "." or "..".
bool hasPlainParts(std::string_view path) {
    while (true) {
        const std::string_view part = path.substr(0, path.find('/'));
        if (part.empty() || part.front() == '.' || part.find('\0') != std::string_view::npos) {
            return false;
        }
        if (part.size() == path.size()) {
            return true;
        }
        path.remove_prefix(part.size() + 1);
    }
}

bool isBelow(const std::filesystem::path& root, const std::filesystem::path& path) {
    return std::mismatch(root.begin(), root.end(), path.begin(), path.end()).first == root.end();
}

std::optional<std::string> content(const std::filesystem::path& file, std::size_t maxBytes) {
    std::error_code error;
    const std::uintmax_t size =
        std::filesystem::file_size(file, error);  // of no other kind of file
    if (error || size > maxBytes) {
        return {};
    }
    std::ifstream stream(file, std::ios::binary);
    std::string body(static_cast<std::size_t>(size), '\0');
    stream.read(body.data(), static_cast<std::streamsize>(size));
    if (stream.gcount() != static_cast<std::streamsize>(size)) {
        return {};
    }
    return body;
}

template <class Read>
std::optional<StaticFile> packedOrPlain(const std::string& path, const char* contentType,
                                        const StaticFiles::Codings& codings, const Read& read) {
    for (const ContentCoding& coding : codings) {
        if (auto body = read(path + std::string(coding.extension))) {
            return StaticFile{std::move(*body), contentType, coding};
        }
    }
    if (auto body = read(path)) {
        return StaticFile{std::move(*body), contentType, {}};
    }
    return {};
}

}  // namespace

StaticFiles::StaticFiles(const std::filesystem::path& root, Kinds kinds, std::size_t maxBytes)
    : m_kinds(kinds), m_maxBytes(maxBytes) {
    std::error_code error;
    if (!root.empty()) {
        m_root = std::filesystem::canonical(root, error);
    }
}

std::optional<StaticFile> StaticFiles::find(std::string_view path, const Codings& codings) const {
    const char* const type = contentType(path);
    if (type == nullptr || m_root.empty() || !hasPlainParts(path)) {
        return {};
    }
    return packedOrPlain(std::string(path), type, codings,
                         [this](const std::string& name) { return readBelowRoot(name); });
}

std::optional<StaticFile> StaticFiles::read(const std::filesystem::path& file,
                                            const char* contentType, std::size_t maxBytes,
                                            const Codings& codings) {
    return packedOrPlain(file.string(), contentType, codings,
                         [maxBytes](const std::string& name) { return content(name, maxBytes); });
}

const char* StaticFiles::contentType(std::string_view path) const {
    const std::string extension = std::filesystem::path(path).extension().string();
    for (const FileKind& kind : s_fileKinds) {
        if (kind.extension == extension && (kind.isImage || m_kinds == Kinds::Page)) {
            return kind.contentType;
        }
    }
    return nullptr;
}

std::optional<std::string> StaticFiles::readBelowRoot(const std::string& path) const {
    std::error_code error;
    const std::filesystem::path real = std::filesystem::canonical(m_root / path, error);
    return !error && isBelow(m_root, real) ? content(real, m_maxBytes) : std::nullopt;
}

}  // namespace DOVA::gateway
