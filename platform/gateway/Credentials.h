#pragma once

#include <boost/beast/http/empty_body.hpp>
#include <boost/beast/http/message.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "RequestTarget.h"

/// What requests show to be let in, wherever it stands in them.
namespace DOVA::gateway::credentials {

using Request = boost::beast::http::request<boost::beast::http::empty_body>;

/// The sub-protocols that are offered, of all headers of that name.
std::vector<std::string_view> subProtocols(const Request& request);

/// The tokens of the query, of the offered sub-protocols and of bearer authorizations.
std::vector<std::string_view> tokens(const Request& request, const RequestTarget& target);

/// The keys of icons, one for each cookie of ours: a browser sends those of all ports of a host.
std::vector<std::string_view> iconKeys(const Request& request);

/// The value of the Set-Cookie header that gives a page of this origin the key of icons. `path` is
/// the page's own, with a slash at its end.
std::string iconCookie(std::string_view key, std::string_view origin, std::string_view path);

}  // namespace DOVA::gateway::credentials
