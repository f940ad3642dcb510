#include "AccessRules.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <boost/asio/ip/address.hpp>
#include <boost/beast/core/string.hpp>
#include <cerrno>
#include <system_error>
#include <utility>

namespace DOVA::gateway {

namespace {

constexpr std::uint16_t kHttpPort = 80;

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

}  // namespace

AccessRules::AccessRules(const GatewayOptions& options, std::uint16_t port, std::string token)
    : m_token(std::move(token)), m_hosts(options.extraHosts), m_extraOrigins(options.extraOrigins) {
    addHost(options.bindAddress, port);
    boost::system::error_code error;
    const auto address = boost::asio::ip::make_address(options.bindAddress, error);
    if (!error && (address.is_loopback() || address.is_unspecified()))
        for (const char* const name : {"localhost", "127.0.0.1", "::1"})
            addHost(name, port);
}

/// Browsers leave the port out where it is the scheme's own.
void AccessRules::addHost(const std::string& address, std::uint16_t port) {
    std::string host = hostAndPort(address, port);
    if (port == kHttpPort)
        m_hosts.push_back(host.substr(0, host.rfind(':')));
    m_hosts.push_back(std::move(host));
}

bool AccessRules::allowsHost(std::string_view host) const {
    return std::any_of(m_hosts.begin(), m_hosts.end(),
                       [host](const auto& allowed) { return equalIgnoringCase(allowed, host); });
}

bool AccessRules::allowsOrigin(std::string_view origin, std::string_view host) const {
    constexpr std::string_view scheme = "http://";
    if (origin.substr(0, scheme.size()) == scheme &&
        equalIgnoringCase(origin.substr(scheme.size()), host))
        return true;
    return std::find(m_extraOrigins.begin(), m_extraOrigins.end(), origin) != m_extraOrigins.end();
}

bool AccessRules::isToken(std::string_view text) const {
    if (text.size() != m_token.size())
        return false;
    // Volatile: no compiler may leave the loop at the first difference.
    volatile unsigned char difference = 0;
    for (std::size_t at = 0; at < text.size(); ++at)
        difference = static_cast<unsigned char>(difference | (text[at] ^ m_token[at]));
    return difference == 0;
}

bool AccessRules::isClientId(std::string_view text) {
    return !text.empty() && text.size() <= 64 && consistsOf(text, "_-");
}

bool AccessRules::isUsableToken(std::string_view text) {
    return text.size() >= 16 && text.size() <= 256 && consistsOf(text, "-_.~");
}

std::string AccessRules::randomToken() {
    std::array<unsigned char, 20> bytes{};
    if (getentropy(bytes.data(), bytes.size()) != 0)
        throw std::system_error(errno, std::generic_category(), "no random token to be had");
    std::string token;
    for (const unsigned char byte : bytes) {
        token.push_back("0123456789abcdef"[byte >> 4]);
        token.push_back("0123456789abcdef"[byte & 15]);
    }
    return token;
}

std::string AccessRules::hostAndPort(const std::string& address, std::uint16_t port) {
    const bool isIpv6 = address.find(':') != std::string::npos;
    return (isIpv6 ? "[" + address + "]" : address) + ":" + std::to_string(port);
}

std::string AccessRules::shownHost(const std::string& bindAddress, std::uint16_t port) {
    const auto address = boost::asio::ip::make_address(bindAddress);
    if (!address.is_unspecified())
        return hostAndPort(bindAddress, port);
    return hostAndPort(address.is_v6() ? "::1" : "127.0.0.1", port);
}

}  // namespace DOVA::gateway
