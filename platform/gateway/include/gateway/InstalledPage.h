#pragma once

#include <filesystem>

#include "gateway/Export.h"

namespace DOVA::gateway {

/// The built page: in the folder for shared data beside this library's, else where it is built.
DOVA_GATEWAY_EXPORT std::filesystem::path installedPage();

}  // namespace DOVA::gateway
