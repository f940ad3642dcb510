#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace DOVA::gateway {

/// What a request asks for, percent-decoded once (RFC 3986): an absolute path and the parameters
/// of its query.
struct RequestTarget {
    /// Whom an absolute form names, as in "http://localhost:8080/": it counts in the place of the
    /// Host header (RFC 9112 section 3.2.2). Empty for "/path".
    std::string host;
    std::string path;
    std::map<std::string, std::string, std::less<>> query;

    /// Nothing for anything but "[http://host]/path[?query]", for a broken percent code, for a path
    /// that holds control characters or a backslash, and for a parameter that is given twice.
    static std::optional<RequestTarget> parse(std::string_view text);

    /// The value of a parameter, empty when there is none.
    std::string_view value(std::string_view name) const;
};

}  // namespace DOVA::gateway
