#pragma once

#include <boost/beast/http/empty_body.hpp>
#include <boost/beast/http/message.hpp>
#include <boost/beast/http/string_body.hpp>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "AccessRules.h"
#include "RequestTarget.h"
#include "StaticFiles.h"
#include "gateway/Entrance.h"
#include "gateway/GatewayOptions.h"

namespace DOVA::gateway {

/// Decides what a request gets. No sockets.
class RequestRouter {
public:
    using Request = boost::beast::http::request<boost::beast::http::empty_body>;
    using Response = boost::beast::http::response<boost::beast::http::string_body>;
    using Status = boost::beast::http::status;

    /// A page that may come in with a WebSocket.
    struct Admission {
        std::string clientId;
        std::string token;
        std::optional<std::uint64_t> received;
        /// Which of the page's connections this is; 0 when the page does not count them.
        std::uint64_t attempt = 0;
        /// Whether the page of a fresh session is ready as soon as it is in.
        bool isReady = false;
    };
    using Answer = std::variant<Response, Admission>;

    /// With an entrance its word on tokens counts, not that of the rules; it must outlive this.
    RequestRouter(const GatewayOptions& options, AccessRules rules,
                  const Entrance* entrance = nullptr);

    /// The answer to a request. To HEAD it has the headers of GET and no body.
    Answer answer(const Request& request) const;

    /// The cookie that lets a page ask for icons, as the answer to its WebSocket request sets it:
    /// browsers can add no header to the request of an image.
    std::string iconCookie(const Request& request) const;

    /// What browsers are told with every answer; `socketSources` is where the page may open sockets
    /// beside its own origin, see AccessRules.
    static void addSecurityHeaders(boost::beast::http::fields& response,
                                   const std::string& socketSources = {});

    /// A refusal: a short plain text with the reason. The connection ends with it.
    static Response refusal(Status status, std::string reason);

private:
    Answer route(const Request& request, const std::optional<RequestTarget>& target,
                 std::string_view host) const;
    std::string belowBase(const std::string& path) const;
    Answer pageFile(const std::string& path, const StaticFiles::Codings& codings) const;
    std::optional<StaticFile> themedDocument() const;
    Answer icon(const Request& request, const RequestTarget& target) const;
    std::string belowIconRoot(const std::string& path) const;
    std::optional<Response> refusalOfToken(const std::vector<std::string_view>& tokens) const;
    Answer admit(const Request& request, const RequestTarget& target, std::string_view host) const;
    static Response redirection(const std::string& path);
    static Answer file(std::optional<StaticFile> found, const char* caching);

    const AccessRules m_rules;
    const Entrance* const m_entrance;
    const std::string m_base;  // the path of the public address
    const StaticFiles m_page;
    const std::filesystem::path m_theme;
    const std::size_t m_maxFileBytes;
    const StaticFiles m_icons;
    const StaticFiles m_pageIcons;  // where the program brings none
    const std::string m_iconRoot;   // as it begins a path without its leading slash
};

}  // namespace DOVA::gateway
