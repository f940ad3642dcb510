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

bool consistsOf(std::string_view text, std::string_view marks) {
    return std::all_of(text.begin(), text.end(), [marks](char character) {
        return isLetterOrDigit(character) || marks.find(character) != std::string_view::npos;
    });
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

bool contains(const std::vector<std::string>& hosts, std::string_view host) {
    return std::any_of(hosts.begin(), hosts.end(),
                       [host](const auto& allowed) { return equalIgnoringCase(allowed, host); });
}

}  // namespace

AccessRules::AccessRules(const GatewayOptions& options, std::uint16_t port, std::string token)
    : m_token(std::move(token)), m_port(port), m_extraOrigins(options.extraOrigins) {
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
        for (const char* const name : {"localhost", "127.0.0.1", "::1"}) {
            addHost(name);
        }
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
    return contains(m_hosts, host) || contains(m_extraHosts, host) || isOurNumericAddress(host);
}

/// A foreign name that leads here (DNS rebinding) is never numeric.
bool AccessRules::isOurNumericAddress(std::string_view host) const {
    const std::string port = ":" + std::to_string(m_port);
    if (!m_takesAnyAddress) {
        return false;
    }
    if (host.size() > port.size() && host.substr(host.size() - port.size()) == port) {
        host.remove_suffix(port.size());
    } else if (m_port != s_httpPort) {
        return false;
    }
    if (host.size() > 2 && host.front() == '[' && host.back() == ']') {
        host = host.substr(1, host.size() - 2);
    }
    boost::system::error_code error;
    boost::asio::ip::make_address(std::string(host), error);
    return !error;
}

bool AccessRules::allowsOrigin(std::string_view origin, std::string_view host) const {
    const auto isPageOf = [&](std::string_view scheme) {
        return origin.substr(0, scheme.size()) == scheme &&
               equalIgnoringCase(origin.substr(scheme.size()), host);
    };
    return isPageOf("http://") || (isPageOf("https://") && contains(m_extraHosts, host)) ||
           std::find(m_extraOrigins.begin(), m_extraOrigins.end(), origin) != m_extraOrigins.end();
}

bool AccessRules::isToken(std::string_view text) const {
    if (text.size() != m_token.size()) {
        return false;
    }
    // Volatile: no compiler may leave the loop at the first difference.
    volatile unsigned char difference = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        difference = static_cast<unsigned char>(difference | (text[at] ^ m_token[at]));
    }
    return difference == 0;
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
