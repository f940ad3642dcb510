#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace DOVA::gateway {

/// What a request asks for, percent-decoded once (RFC 3986): an absolute path and the parameters
/// of its query.
struct RequestTarget {
    std::string path;
    /// The first value of each name.
    std::map<std::string, std::string, std::less<>> query;

    /// Nothing for anything but "/path[?query]", for a broken percent code and for a path that
    /// holds control characters or a backslash.
    static std::optional<RequestTarget> parse(std::string_view text);

    /// The value of a parameter, empty when there is none.
    std::string_view value(std::string_view name) const;
};

}  // namespace DOVA::gateway
