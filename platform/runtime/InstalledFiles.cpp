#include "InstalledFiles.h"

#include <dlfcn.h>

#include <cstdlib>
#include <system_error>

namespace DOVA::runtime {

namespace fs = std::filesystem;

fs::path InstalledFiles::libraryFolder() {
    static const char anchor = 0;
    Dl_info info{};
    if (dladdr(&anchor, &info) == 0) {
        return {};
    }
    return fs::absolute(info.dli_fname).parent_path();
}

fs::path InstalledFiles::module() {
    const char* chosen = std::getenv("DOVA_WEB_MODULE");
    return chosen && *chosen ? fs::path(chosen) : libraryFolder() / DOVA_MODULE_FILE;
}

fs::path InstalledFiles::page() {
    std::error_code error;
    const fs::path installed = libraryFolder() / DOVA_INSTALLED_PAGE;
    return fs::is_directory(installed, error) ? installed.lexically_normal()
                                              : fs::path(DOVA_BUILT_PAGE);
}

}  // namespace DOVA::runtime
