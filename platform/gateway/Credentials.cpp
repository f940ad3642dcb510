#include "Credentials.h"

#include <algorithm>
#include <boost/beast/core/string.hpp>
#include <boost/beast/http/rfc7230.hpp>

#include "RequestNames.h"

namespace DOVA::gateway::credentials {

namespace http = boost::beast::http;

namespace {

constexpr std::string_view s_bearer = "Bearer ";
constexpr std::string_view s_encrypted = "https://";

std::string_view view(boost::beast::string_view text) {
    return {text.data(), text.size()};
}

std::vector<std::string_view> headers(const Request& request, http::field name) {
    std::vector<std::string_view> values;
    const auto [begin, end] = request.equal_range(name);
    for (auto at = begin; at != end; ++at) {
        values.push_back(view(at->value()));
    }
    return values;
}

std::string portOf(std::string_view origin) {
    const bool isEncrypted = origin.substr(0, s_encrypted.size()) == s_encrypted;
    const std::size_t host = origin.find("://") + 3;
    const std::size_t colon = origin.find(':', std::max(host, origin.rfind(']') + 1));
    return colon == std::string_view::npos ? (isEncrypted ? "443" : "80")
                                           : std::string(origin.substr(colon + 1));
}

}  // namespace

std::vector<std::string_view> subProtocols(const Request& request) {
    std::vector<std::string_view> offered;
    for (const std::string_view value : headers(request, http::field::sec_websocket_protocol)) {
        for (const auto& token : http::token_list({value.data(), value.size()})) {
            offered.push_back(view(token));
        }
    }
    return offered;
}

std::vector<std::string_view> tokens(const Request& request, const RequestTarget& target) {
    constexpr std::string_view prefix = names::tokenProtocol;
    std::vector<std::string_view> shown;
    if (target.query.count(query::token) > 0) {
        shown.push_back(target.value(query::token));
    }
    for (const std::string_view offered : subProtocols(request)) {
        if (offered.substr(0, prefix.size()) == prefix) {
            shown.push_back(offered.substr(prefix.size()));
        }
    }
    for (const std::string_view value : headers(request, http::field::authorization)) {
        const std::string_view scheme = value.substr(0, s_bearer.size());
        if (boost::beast::iequals({scheme.data(), scheme.size()}, s_bearer.data())) {
            shown.push_back(value.substr(s_bearer.size()));
        }
    }
    return shown;
}

std::vector<std::string_view> iconKeys(const Request& request) {
    constexpr std::string_view prefix = names::iconCookie;
    std::vector<std::string_view> keys;
    for (std::string_view cookies : headers(request, http::field::cookie)) {
        while (!cookies.empty()) {
            const std::string_view part = cookies.substr(0, cookies.find(';'));
            cookies.remove_prefix(std::min(part.size() + 1, cookies.size()));
            const std::string_view pair =
                part.substr(std::min(part.find_first_not_of(' '), part.size()));
            const std::size_t sign = pair.find('=');
            if (pair.substr(0, prefix.size()) == prefix && sign != std::string_view::npos) {
                keys.push_back(pair.substr(sign + 1));
            }
        }
    }
    return keys;
}

/// Cookies know no ports, so the name bears the one of the page: two programs of a machine do not
/// take each other's, and one that is started again at its address leaves none behind.
std::string iconCookie(std::string_view key, std::string_view origin, std::string_view path) {
    std::string cookie = names::iconCookie + portOf(origin);
    cookie.append("=").append(key).append("; Path=").append(path);
    cookie.append(names::iconPath + 1).append("; HttpOnly; SameSite=Strict");
    return origin.substr(0, s_encrypted.size()) == s_encrypted ? cookie + "; Secure" : cookie;
}

}  // namespace DOVA::gateway::credentials
