#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

namespace DOVA::test {

/// A folder of its own for a test, gone with everything in it at the end.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string pattern = std::filesystem::temp_directory_path() / "dova-test-XXXXXX";
        if (::mkdtemp(pattern.data()) == nullptr) {
            throw std::runtime_error("cannot make a folder for the test");
        }
        m_path = pattern;
    }
    ~TemporaryFolder() { std::filesystem::remove_all(m_path); }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::string operator/(const std::string& name) const { return m_path / name; }

    std::string write(const std::string& name, const std::string& bytes) const {
        std::filesystem::create_directories((m_path / name).parent_path());
        std::ofstream(m_path / name, std::ios::binary) << bytes;
        return m_path / name;
    }

    std::string read(const std::string& name) const {
        std::ifstream file(m_path / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    /// The names in the folder.
    std::vector<std::string> names() const {
        std::vector<std::string> result;
        for (const auto& entry : std::filesystem::directory_iterator(m_path)) {
            result.push_back(entry.path().filename());
        }
        return result;
    }

private:
    std::filesystem::path m_path;
};

}  // namespace DOVA::test
