#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace DOVA {

/// A picture: the paths of its image files, the preferred one first.
class Icon {
public:
    /// Adds an image file: a UTF-8 path, absolute or below the application root.
    void insertImage(const std::string& file) { m_files.push_back(file); }
    std::size_t imageCount() const { return m_files.size(); }
    /// The path of image `index`; empty if there is none.
    std::string getFile(std::size_t index) const {
        return index < m_files.size() ? m_files[index] : std::string();
    }

private:
    std::vector<std::string> m_files;
};

}  // namespace DOVA
