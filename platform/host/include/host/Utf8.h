#pragma once

#include <string>
#include <string_view>

#include "host/Export.h"

namespace host {

/// The text in UTF-8 (RFC 3629). A lone surrogate becomes three bytes that the standard forbids, so
/// that fromUtf8() gives every text back as it was.
DOVA_HOST_EXPORT std::string toUtf8(std::u16string_view text);

/// The text of these bytes. Each byte that is no UTF-8 becomes U+FFFD.
DOVA_HOST_EXPORT std::u16string fromUtf8(std::string_view bytes);

}  // namespace host
