#include "AccessRules.h"

#include <gtest/gtest.h>

#include <string>

namespace DOVA::gateway {
namespace {

constexpr const char* kToken = "0123456789abcdef";

AccessRules rulesFor(const std::string& address, std::uint16_t port) {
    GatewayOptions options;
    options.bindAddress = address;
    options.extraHosts = {"pad.example:8443"};
    options.extraOrigins = {"https://pad.example:8443"};
    return AccessRules(options, port, kToken);
}

struct HostRow {
    const char* name;
    const char* address;
    std::uint16_t port;
    const char* host;
    bool allowed;
};

TEST(AccessRulesTest, onlyItsOwnHostsAreAllowed) {
    for (const HostRow& row :
         {HostRow{"letterCase", "127.0.0.1", 8080, "LocalHost:8080", true},
          HostRow{"ipv6", "::1", 8080, "[::1]:8080", true},
          HostRow{"otherLoopback", "127.0.0.5", 8080, "127.0.0.5:8080", true},
          HostRow{"everyInterface", "0.0.0.0", 8080, "localhost:8080", true},
          HostRow{"schemesOwnPort", "127.0.0.1", 80, "localhost", true},
          HostRow{"schemesOwnPortOfIpv6", "::1", 80, "[::1]", true},
          HostRow{"extra", "127.0.0.1", 8080, "pad.example:8443", true},
          HostRow{"otherPort", "127.0.0.1", 8080, "127.0.0.1:8081", false},
          HostRow{"noPort", "127.0.0.1", 8080, "127.0.0.1", false},
          HostRow{"rebound", "127.0.0.1", 8080, "evil.example:8080", false},
          HostRow{"suffix", "127.0.0.1", 8080, "localhost:8080.evil.example", false},
          HostRow{"localhostOfAnotherInterface", "192.0.2.1", 8080, "localhost:8080", false},
          HostRow{"empty", "127.0.0.1", 8080, "", false}})
        EXPECT_EQ(rulesFor(row.address, row.port).allowsHost(row.host), row.allowed) << row.name;
}

TEST(AccessRulesTest, onlyItsOwnOriginsAreAllowed) {
    const AccessRules rules = rulesFor("127.0.0.1", 8080);
    for (const char* const good : {"http://localhost:8080", "https://pad.example:8443"})
        EXPECT_TRUE(rules.allowsOrigin(good, "localhost:8080")) << good;
    for (const char* const bad : {"", "null", "http://", "http://127.0.0.1:8080",
                                  "https://localhost:8080", "http://localhost:8080.evil.example"})
        EXPECT_FALSE(rules.allowsOrigin(bad, "localhost:8080")) << bad;
}

TEST(AccessRulesTest, onlyTheWholeTokenOpens) {
    const AccessRules rules = rulesFor("127.0.0.1", 8080);
    const std::string token = kToken;
    EXPECT_TRUE(rules.isToken(token));
    EXPECT_FALSE(rules.isToken(token + "0"));
    for (std::size_t at = 0; at < token.size(); ++at) {
        std::string wrong = token;
        wrong[at] = 'x';
        EXPECT_FALSE(rules.isToken(wrong)) << at;
        EXPECT_FALSE(rules.isToken(token.substr(0, at))) << at;
    }
}

TEST(AccessRulesTest, clientIdentifiersArePlainAndShort) {
    for (const std::string& good : {std::string("A-Z_09"), std::string(64, 'x')})
        EXPECT_TRUE(AccessRules::isClientId(good)) << good;
    for (const std::string& bad : {std::string(), std::string(65, 'x'), std::string("a/b"),
                                   std::string("a\"b"), std::string("a\0b", 3), std::string(".")})
        EXPECT_FALSE(AccessRules::isClientId(bad)) << bad;
}

}  // namespace
}  // namespace DOVA::gateway
