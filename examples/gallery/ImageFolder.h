#pragma once

#include <filesystem>

namespace gallery {

/// The folder of the program's images: the installed one, found from where the program itself is,
/// so that an installed copy may be moved; else the one of the source tree.
std::filesystem::path imageFolder();

}  // namespace gallery
