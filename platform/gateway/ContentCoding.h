#pragma once

#include <string_view>
#include <vector>

namespace DOVA::gateway {

/// A way in which a file may be packed for its way.
struct ContentCoding {
    /// As in Content-Encoding; empty: not packed.
    std::string_view name;
    /// What the packed file's name has behind the file's own.
    std::string_view extension;
};

/// Those that a browser takes by its Accept-Encoding headers (RFC 9110 section 12.5.3), the one
/// that it likes best first; of those that it likes equally, the one that makes smaller files. A
/// quality that cannot be read counts as 0, so as not to send what may not be wanted.
std::vector<ContentCoding> acceptedCodings(std::string_view acceptEncoding);

}  // namespace DOVA::gateway
