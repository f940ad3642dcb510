#include "AccessRules.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <boost/algorithm/hex.hpp>
#include <boost/asio/ip/address.hpp>
#include <boost/beast/core/string.hpp>
#include <cerrno>
#include <charconv>
#include <system_error>
#include <utility>

namespace DOVA::gateway {

namespace {

constexpr std::uint16_t s_httpPort = 80;

bool isLetterOrDigit(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
           (character >= '0' && character <= '9');
}

bool equalIgnoringCase(std::string_view a, std::string_view b) {
    return boost::beast::iequals({a.data(), a.size()}, {b.data(), b.size()});
}

bool isPort(std::string_view text) {
    std::uint16_t port = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, port);
    return error == std::errc() && stop == end;
}

/// The name of a Host value, whatever its port; nothing when its port is none.
std::optional<std::string_view> nameOf(std::string_view host) {
    const std::size_t colon = host.find(':', host.rfind(']') + 1);
    if (colon != std::string_view::npos && !isPort(host.substr(colon + 1))) {
        return {};
    }
    return host.substr(0, colon);
}

bool isNumericAddress(std::string_view name) {
    if (name.size() > 2 && name.front() == '[' && name.back() == ']') {
        name = name.substr(1, name.size() - 2);
    }
    boost::system::error_code error;
    boost::asio::ip::make_address(std::string(name), error);
    return !error;
}

bool equalInConstantTime(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) {
        return false;
    }
    // Volatile: no compiler may leave the loop at the first difference.
    volatile unsigned char difference = 0;
    for (std::size_t at = 0; at < a.size(); ++at) {
        difference = static_cast<unsigned char>(difference | (a[at] ^ b[at]));
    }
    return difference == 0;
}

bool contains(const std::vector<std::string>& hosts, std::string_view host) {
    return std::any_of(hosts.begin(), hosts.end(),
                       [host](const auto& allowed) { return equalIgnoringCase(allowed, host); });
}

}  // namespace

AccessRules::AccessRules(const GatewayOptions& options, std::uint16_t port, std::string token)
    : m_token(std::move(token)),
      m_iconKey(randomToken()),
      m_port(port),
      m_publicUrl(PublicUrl::parse(options.publicUrl)),
      m_extraOrigins(options.extraOrigins) {
    addHost(options.bindAddress);
    addNamesOfMachine(options.bindAddress);
    for (const std::string& host : options.extraHosts) {
        addExtraHost(host);
    }
}

void AccessRules::addNamesOfMachine(const std::string& bindAddress) {
    boost::system::error_code error;
    const auto address = boost::asio::ip::make_address(bindAddress, error);
    m_takesAnyAddress = !error && address.is_unspecified();
    if (!error && (address.is_loopback() || address.is_unspecified())) {
        m_names = {"localhost", "127.0.0.1", "[::1]"};
    }
    std::array<char, 256> name{};
    if (!error && !address.is_loopback() && gethostname(name.data(), name.size() - 1) == 0) {
        addHost(name.data());
    }
}

/// Browsers leave the port out where it is the scheme's own.
void AccessRules::addHost(const std::string& address) {
    std::string host = hostAndPort(address, m_port);
    if (m_port == s_httpPort) {
        m_hosts.push_back(host.substr(0, host.rfind(':')));
    }
    m_hosts.push_back(std::move(host));
}

void AccessRules::addExtraHost(const std::string& host) {
    const bool hasPort = host.find(':', host.rfind(']') + 1) != std::string::npos;
    m_extraHosts.push_back(host);
    if (!hasPort) {
        m_extraHosts.push_back(host + ":" + std::to_string(m_port));
    }
}

bool AccessRules::allowsHost(std::string_view host) const {
    return isOwnHost(host) || isPublicHost(host);
}

/// A foreign name that leads here (DNS rebinding) is neither numeric nor one of this machine's, and
/// its port says nothing: ours may be forwarded from another one.
bool AccessRules::isOwnHost(std::string_view host) const {
    const auto name = nameOf(host);
    return contains(m_hosts, host) || contains(m_extraHosts, host) ||
           (name && (contains(m_names, *name) || (m_takesAnyAddress && isNumericAddress(*name))));
}

/// Proxies pass the name on with its port, with their own or without any.
bool AccessRules::isPublicHost(std::string_view host) const {
    const auto name = nameOf(host);
    return m_publicUrl && name && equalIgnoringCase(*name, m_publicUrl->name);
}

bool AccessRules::allowsOrigin(std::string_view origin, std::string_view host) const {
    const auto isPageOf = [&](std::string_view scheme) {
        return origin.substr(0, scheme.size()) == scheme &&
               equalIgnoringCase(origin.substr(scheme.size()), host);
    };
    return (m_publicUrl && origin == m_publicUrl->origin()) ||
           (isPageOf("http://") && isOwnHost(host)) ||
           (isPageOf("https://") && contains(m_extraHosts, host)) ||
           std::find(m_extraOrigins.begin(), m_extraOrigins.end(), origin) != m_extraOrigins.end();
}

bool AccessRules::isToken(std::string_view text) const {
    return equalInConstantTime(text, m_token);
}

bool AccessRules::isIconKey(std::string_view text) const {
    return equalInConstantTime(text, m_iconKey);
}

/// Browsers do not agree whether 'self' allows sockets.
std::string AccessRules::socketSources(std::string_view host) const {
    std::string own = isOwnHost(host) ? " ws://" + std::string(host) : "";
    if (!m_publicUrl) {
        return own;
    }
    return own + (m_publicUrl->scheme == "https" ? " wss://" : " ws://") + m_publicUrl->host;
}

bool AccessRules::consistsOf(std::string_view text, std::string_view marks) {
    return std::all_of(text.begin(), text.end(), [marks](char character) {
        return isLetterOrDigit(character) || marks.find(character) != std::string_view::npos;
    });
}

bool AccessRules::isClientId(std::string_view text) {
    return !text.empty() && text.size() <= 64 && consistsOf(text, "_-");
}

bool AccessRules::isUsableToken(std::string_view text) {
    return text.size() >= 16 && text.size() <= 256 && consistsOf(text, "-_.~");
}

bool AccessRules::isUsableHost(const std::string& text) {
    const std::size_t colon = text.find(':', text.rfind(']') + 1);
    const std::string name = text.substr(0, colon);
    if (colon != std::string::npos && !isPort(std::string_view(text).substr(colon + 1))) {
        return false;
    }
    if (name.empty() || name.front() != '[') {
        return !name.empty() && consistsOf(name, "._-");
    }
    boost::system::error_code error;
    boost::asio::ip::make_address_v6(name.substr(1, name.size() - 2), error);
    return name.back() == ']' && !error;
}

bool AccessRules::isUsableOrigin(const std::string& text) {
    const std::size_t end = text.find("://");
    const std::string scheme = text.substr(0, end);
    return (scheme == "http" || scheme == "https") && end != std::string::npos &&
           isUsableHost(text.substr(end + 3));
}

std::string AccessRules::randomToken() {
    std::array<unsigned char, 20> bytes{};
    if (getentropy(bytes.data(), bytes.size()) != 0) {
        throw std::system_error(errno, std::generic_category(), "no random token to be had");
    }
    std::string token;
    boost::algorithm::hex_lower(bytes.begin(), bytes.end(), std::back_inserter(token));
    return token;
}

std::string AccessRules::hostAndPort(const std::string& address, std::uint16_t port) {
    const bool isIpv6 = address.find(':') != std::string::npos;
    return (isIpv6 ? "[" + address + "]" : address) + ":" + std::to_string(port);
}

std::string AccessRules::shownHost(const std::string& bindAddress, std::uint16_t port) {
    const auto address = boost::asio::ip::make_address(bindAddress);
    if (!address.is_unspecified()) {
        return hostAndPort(bindAddress, port);
    }
    return hostAndPort(address.is_v6() ? "::1" : "127.0.0.1", port);
}

}  // namespace DOVA::gateway
