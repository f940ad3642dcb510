#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <stdexcept>
#include <string>

namespace DOVA::gateway {

/// A folder with files in it, deleted with this object.
class TemporaryFolder {
public:
    /// Relative path -> content.
    explicit TemporaryFolder(const std::map<std::string, std::string>& files) {
        std::string pattern = (std::filesystem::temp_directory_path() / "gatewayXXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr)
            throw std::runtime_error("cannot make a temporary folder");
        m_path = pattern;
        for (const auto& [path, content] : files) {
            std::filesystem::create_directories((m_path / path).parent_path());
            std::ofstream(m_path / path, std::ios::binary) << content;
        }
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() { std::filesystem::remove_all(m_path); }

    const std::filesystem::path& path() const { return m_path; }

private:
    std::filesystem::path m_path;
};

}  // namespace DOVA::gateway
