#pragma once

#include <string>
#include <string_view>

#include "host/Export.h"

namespace host {

/// The text in UTF-8 (RFC 3629). A lone surrogate becomes its three bytes, which UTF-8 proper does
/// not have: so every text comes back as it was.
DOVA_HOST_EXPORT std::string toUtf8(std::u16string_view text);

/// The way back. Bytes that are no UTF-8 become one U+FFFD each.
DOVA_HOST_EXPORT std::u16string fromUtf8(std::string_view bytes);

}  // namespace host
