#include "ImageFolder.h"

#include <system_error>

namespace gallery {

namespace fs = std::filesystem;

fs::path imageFolder() {
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    const fs::path installed = program.parent_path() / GALLERY_INSTALLED_IMAGES;
    return fs::is_directory(installed, error) ? installed.lexically_normal()
                                              : fs::path(GALLERY_SOURCE_IMAGES);
}

}  // namespace gallery
