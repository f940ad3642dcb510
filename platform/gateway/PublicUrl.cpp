#include "gateway/PublicUrl.h"

#include <algorithm>
#include <boost/algorithm/string/case_conv.hpp>
#include <string_view>

#include "AccessRules.h"

namespace DOVA::gateway {

namespace {

bool isPlainPart(std::string_view part) {
    return !part.empty() && part != "." && part != ".." && AccessRules::consistsOf(part, "-_.~");
}

bool isPlainPath(std::string_view path) {
    if (path.empty() || path.front() != '/' || path.back() != '/') {
        return false;
    }
    for (path.remove_prefix(1); !path.empty(); path.remove_prefix(path.find('/') + 1)) {
        if (!isPlainPart(path.substr(0, path.find('/')))) {
            return false;
        }
    }
    return true;
}

}  // namespace

std::optional<PublicUrl> PublicUrl::parse(const std::string& text) {
    const std::size_t end = text.find("://");
    const std::size_t slash = text.find('/', end + 3);
    if (end == std::string::npos || slash == std::string::npos) {
        return {};
    }
    const std::string origin = boost::algorithm::to_lower_copy(text.substr(0, slash));
    PublicUrl url{origin.substr(0, end), {}, origin.substr(end + 3), text.substr(slash)};
    if (!AccessRules::isUsableOrigin(origin) || !isPlainPath(url.path)) {
        return {};
    }
    const std::size_t colon = url.host.find(':', url.host.rfind(']') + 1);
    const std::string port = url.host.substr(std::min(colon, url.host.size()));
    url.name = url.host.substr(0, colon);
    if (port == (url.scheme == "https" ? ":443" : ":80")) {
        url.host = url.name;
    }
    const bool isPortOfNone = port.substr(0, 2) == ":0";
    return isPortOfNone ? std::nullopt : std::optional(url);
}

std::string PublicUrl::complaint(const std::string& text) {
    return "\"" + text +
           "\" is no public address; give one that ends with a slash, like https://pad.example/ or "
           "https://pad.example:8443/pad/";
}

std::string PublicUrl::origin() const {
    return scheme + "://" + host;
}

std::string PublicUrl::text() const {
    return origin() + path;
}

}  // namespace DOVA::gateway
