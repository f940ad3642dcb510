#include "InstalledFiles.h"

#include <dlfcn.h>

#include <cstdlib>

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

}  // namespace DOVA::runtime
