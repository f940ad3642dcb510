#pragma once

#include <optional>
#include <string>

#include "gateway/Export.h"

namespace DOVA::gateway {

/// The address under which browsers reach a gateway behind a proxy, taken apart.
struct DOVA_GATEWAY_EXPORT PublicUrl {
    /// "http" or "https".
    std::string scheme;
    /// A name or address without its port, in lower case: "pad.example", "[::1]".
    std::string name;
    /// The same with its port, which is left out where it is the scheme's own, as browsers do.
    std::string host;
    /// Begins and ends with a slash: "/", "/pad/".
    std::string path;

    /// Takes "http" or "https", "://", a name or address, a port if there is one, and a path of
    /// the characters A-Z a-z 0-9 - _ . ~ that begins and ends with "/" and has neither empty
    /// parts nor "." or "..". Nothing for anything else.
    static std::optional<PublicUrl> parse(const std::string& text);

    /// What is wrong with a text that parse() does not take, for the user.
    static std::string complaint(const std::string& text);

    /// The Origin of pages from there: "https://pad.example:8443".
    std::string origin() const;
    /// The whole: "https://pad.example:8443/pad/".
    std::string text() const;
};

}  // namespace DOVA::gateway
