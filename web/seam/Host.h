#pragma once

#include <array>
#include <optional>
#include <string>

#include "toolkit/Color.h"

namespace DOVA::seam {

/// What a function of the host's scripting language answers that takes nothing: whether it is a
/// true flag; nothing if it fails.
std::optional<bool> askHost(const char* function);

/// The folder below which the application's resources are, UTF-8; nothing if it has none.
std::optional<std::string> applicationRoot();

/// Has the desktop module let its native side go, if it is there.
void shutDownBridge(const std::string& backend);

/// Red, green and blue from 0 to 255.
std::array<int, 3> channelsOf(Color color);
Color opaqueWhite();

}  // namespace DOVA::seam
