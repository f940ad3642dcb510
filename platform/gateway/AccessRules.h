#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "gateway/GatewayOptions.h"
#include "gateway/PublicUrl.h"

namespace DOVA::gateway {

/// Who may come in: the Host a request is meant for (against DNS rebinding), the Origin of a
/// page's socket, the token, the key of icons and the form of a client identifier.
class AccessRules {
public:
    /// `port` is the one that is listened on, `token` the one in force. Makes a fresh key for
    /// icons.
    AccessRules(const GatewayOptions& options, std::uint16_t port, std::string token);

    const std::optional<PublicUrl>& publicUrl() const { return m_publicUrl; }

    /// Whether the value of a Host header is one of ours; letter case does not count.
    bool allowsHost(std::string_view host) const;

    /// Whether a page of this origin may open a socket at `host`, an allowed Host value.
    bool allowsOrigin(std::string_view origin, std::string_view host) const;

    /// Takes the same time for every text of the token's length.
    bool isToken(std::string_view text) const;

    /// What a page that has shown the token asks for icons with. It is no token and stands for
    /// none.
    const std::string& iconKey() const { return m_iconKey; }

    /// Takes the same time for every text of the key's length.
    bool isIconKey(std::string_view text) const;

    /// Where a page that came by `host`, an allowed Host value, may open its socket beside its own
    /// origin, as it stands in a content-security policy: each with a space before it.
    std::string socketSources(std::string_view host) const;

    /// Whether all characters are A-Z a-z 0-9 or one of the marks.
    static bool consistsOf(std::string_view text, std::string_view marks);

    /// 1 to 64 characters of A-Z a-z 0-9 _ -
    static bool isClientId(std::string_view text);

    /// Whether an option's text will do as a token.
    static bool isUsableToken(std::string_view text);

    /// A fresh token of 160 bits from the operating system's random source, in hexadecimal.
    /// Throws std::system_error when that gives none.
    static std::string randomToken();

    /// How an address and port stand in a URL: an IPv6 address in brackets.
    static std::string hostAndPort(const std::string& address, std::uint16_t port);

    /// The same for the user's browser on this machine: an address that stands for every interface
    /// is none that can be opened everywhere, so its loopback address is named.
    static std::string shownHost(const std::string& bindAddress, std::uint16_t port);

    /// Whether an option's text is a name or address, with or without a port.
    static bool isUsableHost(const std::string& text);

    /// Whether an option's text is a scheme and a host, and nothing behind it.
    static bool isUsableOrigin(const std::string& text);

private:
    void addHost(const std::string& address);
    void addNamesOfMachine(const std::string& bindAddress);
    void addExtraHost(const std::string& host);
    bool isOwnHost(std::string_view host) const;
    bool isPublicHost(std::string_view host) const;

    std::string m_token;
    std::string m_iconKey;
    std::uint16_t m_port;
    bool m_takesAnyAddress = false;
    std::optional<PublicUrl> m_publicUrl;
    std::vector<std::string> m_hosts;
    std::vector<std::string> m_names;       // with any port
    std::vector<std::string> m_extraHosts;  // those that the options name, ports included
    std::vector<std::string> m_extraOrigins;
};

}  // namespace DOVA::gateway
