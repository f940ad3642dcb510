#include "gateway/InstalledPage.h"

#include <dlfcn.h>

#include <system_error>

namespace DOVA::gateway {

namespace fs = std::filesystem;

fs::path installedPage() {
    static const char anchor = 0;
    Dl_info info{};
    std::error_code error;
    if (dladdr(&anchor, &info) != 0) {
        const fs::path folder = fs::absolute(info.dli_fname).parent_path() / DOVA_INSTALLED_PAGE;
        if (fs::is_directory(folder, error)) {
            return folder.lexically_normal();
        }
    }
    return DOVA_BUILT_PAGE;
}

}  // namespace DOVA::gateway
