#include "RequestRouter.h"

#include <algorithm>
#include <boost/beast/http/rfc7230.hpp>
#include <boost/beast/websocket/rfc6455.hpp>
#include <charconv>
#include <cstring>
#include <functional>
#include <sstream>
#include <utility>

#include "Credentials.h"
#include "FrameCodec.h"
#include "RequestNames.h"

namespace DOVA::gateway {

namespace http = boost::beast::http;

namespace {

constexpr const char* s_document = "index.html";
constexpr const char* s_theme = "theme.css";
constexpr const char* s_immutable = "immutable/";
constexpr const char* s_askEachTime = "no-cache";
constexpr const char* s_forAYear = "public, max-age=31536000, immutable";

std::string_view view(boost::beast::string_view text) {
    return {text.data(), text.size()};
}

std::string_view header(const RequestRouter::Request& request, http::field name) {
    return view(request[name]);
}

/// A strong one: packed or plain, other bytes have another.
std::string entityTag(const std::string& body) {
    std::ostringstream tag;
    tag << '"' << std::hex << std::hash<std::string>()(body) << '"';
    return tag.str();
}

/// Whether the browser has just what would be sent (RFC 9110 section 13.1.2).
bool isUnchanged(const RequestRouter::Request& request, const RequestRouter::Response& response) {
    const std::string_view known = header(request, http::field::if_none_match);
    return known == "*" || known.find(view(response[http::field::etag])) != std::string_view::npos;
}

void leaveOutBody(RequestRouter::Response& response) {
    response.result(RequestRouter::Status::not_modified);
    response.erase(http::field::content_length);
    response.body().clear();
}

StaticFiles::Codings codingsFor(const RequestRouter::Request& request) {
    return acceptedCodings(header(request, http::field::accept_encoding));
}

bool readNumber(std::string_view text, std::uint64_t& number) {
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && stop == end && number <= session::FrameCodec::s_maxNumber;
}

/// Browsers do not tell a page why its socket was refused, so it sends the same request without the
/// upgrade. They leave Origin out of that one, and the page names its own.
std::string_view originOf(const RequestRouter::Request& request, const RequestTarget& target) {
    const bool isQuestion =
        request.count(http::field::origin) == 0 && !boost::beast::websocket::is_upgrade(request);
    return isQuestion ? target.value(query::origin) : header(request, http::field::origin);
}

}  // namespace

RequestRouter::RequestRouter(const GatewayOptions& options, AccessRules rules,
                             const Entrance* entrance)
    : m_rules(std::move(rules)),
      m_entrance(entrance),
      m_base(m_rules.publicUrl() ? m_rules.publicUrl()->path : "/"),
      m_page(options.pageFolder, StaticFiles::Kinds::Page, options.limits.fileBytes),
      m_theme(options.theme),
      m_maxFileBytes(options.limits.fileBytes),
      m_icons(options.applicationRoot, StaticFiles::Kinds::Images, options.limits.fileBytes),
      m_pageIcons(options.pageFolder / "images", StaticFiles::Kinds::Images,
                  options.limits.fileBytes),
      m_iconRoot(options.applicationRoot.relative_path().lexically_normal() / "") {}

RequestRouter::Answer RequestRouter::answer(const Request& request) const {
    auto target = RequestTarget::parse(view(request.target()));
    if (target) {
        target->path = belowBase(target->path);
    }
    const std::string host(target && !target->host.empty() ? target->host
                                                           : header(request, http::field::host));
    Answer answer = route(request, target, host);
    if (auto* const response = std::get_if<Response>(&answer)) {
        response->version(request.version());
        if (response->result() == Status::ok) {
            response->keep_alive(request.keep_alive());
            // Only an answer of status 200 has passed the check of its host.
            addSecurityHeaders(*response, m_rules.socketSources(host));
            if (isUnchanged(request, *response)) {
                leaveOutBody(*response);
            }
        }
        if (request.method() == http::verb::head) {
            response->body().clear();
        }
    }
    return answer;
}

RequestRouter::Answer RequestRouter::route(const Request& request,
                                           const std::optional<RequestTarget>& target,
                                           std::string_view host) const {
    if (request.count(http::field::host) != 1 || !m_rules.allowsHost(host)) {
        return refusal(Status::forbidden, "this host name is not allowed");
    }
    if (request.method() != http::verb::get && request.method() != http::verb::head) {
        return refusal(Status::method_not_allowed, "only GET and HEAD are allowed");
    }
    if (!target) {
        return refusal(Status::bad_request, "malformed request target");
    }
    if (target->path + "/" == m_base) {
        return redirection(m_base);
    }
    if (target->path == names::socketPath) {
        return admit(request, *target, host);
    }
    if (target->path.rfind(names::iconPath, 0) == 0) {
        return icon(request, *target);
    }
    return pageFile(target->path == "/" ? s_document : target->path.substr(1), codingsFor(request));
}

/// A proxy passes the public path on, or not.
std::string RequestRouter::belowBase(const std::string& path) const {
    return path.compare(0, m_base.size(), m_base) == 0 ? path.substr(m_base.size() - 1) : path;
}

RequestRouter::Answer RequestRouter::pageFile(const std::string& path,
                                              const StaticFiles::Codings& codings) const {
    if (!m_theme.empty() && path == s_document) {
        return file(themedDocument(), s_askEachTime);
    }
    if (!m_theme.empty() && path == s_theme) {
        return file(StaticFiles::read(m_theme, "text/css; charset=utf-8", m_maxFileBytes, codings),
                    s_askEachTime);
    }
    return file(m_page.find(path, codings),
                path.rfind(s_immutable, 0) == 0 ? s_forAYear : s_askEachTime);
}

/// Never packed, since it is not the file that was.
std::optional<StaticFile> RequestRouter::themedDocument() const {
    auto document = m_page.find(s_document, {});
    const std::size_t end = document ? document->body.find("</head>") : std::string::npos;
    if (end != std::string::npos) {
        document->body.insert(end, "<link rel=\"stylesheet\" href=\"theme.css\">");
    }
    return document;
}

RequestRouter::Answer RequestRouter::icon(const Request& request,
                                          const RequestTarget& target) const {
    const auto keys = credentials::iconKeys(request);
    const bool hasKey =
        std::any_of(keys.begin(), keys.end(), [this](auto key) { return m_rules.isIconKey(key); });
    if (auto refused = refusalOfToken(credentials::tokens(request, target)); refused && !hasKey) {
        return std::move(*refused);
    }
    const std::string path = belowIconRoot(target.path.substr(std::strlen(names::iconPath)));
    auto found = m_icons.find(path, {});
    return file(found ? std::move(found) : m_pageIcons.find(path, {}), s_askEachTime);
}

/// Programs also name their icons by absolute paths below the application root; a page asks for
/// those without the leading slash.
std::string RequestRouter::belowIconRoot(const std::string& path) const {
    const bool isBelow = !m_iconRoot.empty() && path.compare(0, m_iconRoot.size(), m_iconRoot) == 0;
    return path.substr(
        isBelow ? std::min(path.find_first_not_of('/', m_iconRoot.size()), path.size()) : 0);
}

std::string RequestRouter::iconCookie(const Request& request) const {
    const std::string_view origin = header(request, http::field::origin);
    const auto& url = m_rules.publicUrl();
    return credentials::iconCookie(m_rules.iconKey(), origin,
                                   url && origin == url->origin() ? url->path : "/");
}

std::optional<RequestRouter::Response> RequestRouter::refusalOfToken(
    const std::vector<std::string_view>& tokens) const {
    if (tokens.size() > 1) {
        return refusal(Status::bad_request, "the token is given twice");
    }
    const std::string_view token = tokens.empty() ? std::string_view() : tokens.front();
    const auto ofRules = [&] {
        return m_rules.isToken(token) ? Entrance::Verdict::Welcome : Entrance::Verdict::Stranger;
    };
    switch (m_entrance ? m_entrance->judge(token) : ofRules()) {
        case Entrance::Verdict::Stranger:
            return refusal(Status::unauthorized, "missing or wrong token");
        case Entrance::Verdict::Crowded:
            return refusal(Status::service_unavailable, "too many programs are running");
        case Entrance::Verdict::Welcome:
            break;
    }
    return {};
}

RequestRouter::Answer RequestRouter::admit(const Request& request, const RequestTarget& target,
                                           std::string_view host) const {
    if (request.count(http::field::origin) > 1 ||
        !m_rules.allowsOrigin(originOf(request, target), host)) {
        return refusal(Status::forbidden, "this origin is not allowed");
    }
    const auto tokens = credentials::tokens(request, target);
    if (auto refused = refusalOfToken(tokens)) {
        return std::move(*refused);
    }
    Admission admission{std::string(target.value(query::client)),
                        std::string(tokens.front()),
                        {},
                        0,
                        target.query.count(query::ready) > 0};
    if (!AccessRules::isClientId(admission.clientId)) {
        return refusal(Status::bad_request, "missing or bad client identifier");
    }
    if (target.query.count(query::received) > 0 &&
        !readNumber(target.value(query::received), admission.received.emplace())) {
        return refusal(Status::bad_request, "bad number of received texts");
    }
    if (target.query.count(query::attempt) > 0 &&
        !readNumber(target.value(query::attempt), admission.attempt)) {
        return refusal(Status::bad_request, "bad number of an attempt");
    }
    if (!boost::beast::websocket::is_upgrade(request)) {
        return refusal(Status::upgrade_required, "only WebSocket connections are served here");
    }
    const auto offered = credentials::subProtocols(request);
    if (std::count(offered.begin(), offered.end(), names::subProtocol) == 0) {
        return refusal(Status::bad_request,
                       std::string("the sub-protocol must be ") + names::subProtocol);
    }
    return admission;
}

RequestRouter::Answer RequestRouter::file(std::optional<StaticFile> found, const char* caching) {
    if (!found) {
        return refusal(Status::not_found, "no such file");
    }
    Response response(Status::ok, 11);
    response.set(http::field::content_type, found->contentType);
    response.set(http::field::vary, "Accept-Encoding");
    response.set(http::field::cache_control, caching);
    response.set(http::field::etag, entityTag(found->body));
    if (!found->coding.name.empty()) {
        response.set(http::field::content_encoding, std::string(found->coding.name));
    }
    response.content_length(found->body.size());
    response.body() = std::move(found->body);
    return response;
}

RequestRouter::Response RequestRouter::refusal(Status status, std::string reason) {
    Response response(status, 11);
    response.set(http::field::content_type, "text/plain; charset=utf-8");
    if (status == Status::method_not_allowed) {
        response.set(http::field::allow, "GET, HEAD");
    }
    if (status == Status::unauthorized) {
        response.set(http::field::www_authenticate, "Bearer");
    }
    if (status == Status::upgrade_required) {
        response.set(http::field::upgrade, "websocket");
    }
    reason.push_back('\n');
    response.content_length(reason.size());
    response.body() = std::move(reason);
    response.keep_alive(false);
    addSecurityHeaders(response);
    return response;
}

RequestRouter::Response RequestRouter::redirection(const std::string& path) {
    Response response = refusal(Status::permanent_redirect, "the page is at " + path);
    response.set(http::field::location, path);
    return response;
}

void RequestRouter::addSecurityHeaders(http::fields& response, const std::string& socketSources) {
    response.set("Content-Security-Policy",
                 "default-src 'none'; script-src 'self'; style-src 'self'; img-src 'self'; "
                 "connect-src 'self'" +
                     socketSources +
                     "; base-uri 'none'; form-action 'none'; frame-ancestors 'none'; "
                     "require-trusted-types-for 'script'; trusted-types lit-html");
    response.set("X-Content-Type-Options", "nosniff");
    response.set("Referrer-Policy", "no-referrer");
    response.set("Cross-Origin-Opener-Policy", "same-origin");
    response.set("Cross-Origin-Embedder-Policy", "require-corp");
    response.set("Cross-Origin-Resource-Policy", "same-origin");
    if (response.count(http::field::cache_control) == 0) {
        response.set(http::field::cache_control, s_askEachTime);
    }
}

}  // namespace DOVA::gateway
