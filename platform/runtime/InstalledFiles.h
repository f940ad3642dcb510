#pragma once

#include <filesystem>

namespace DOVA::runtime {

/// Where the files are that belong to this library, in a build tree and after installation.
class InstalledFiles {
public:
    /// The module: as DOVA_WEB_MODULE in the environment says, else beside this library.
    static std::filesystem::path module();

private:
    static std::filesystem::path libraryFolder();
};

}  // namespace DOVA::runtime
