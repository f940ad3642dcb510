#include "AccessRules.h"

#include <gtest/gtest.h>

#include <set>
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

class AccessRulesHostTest : public testing::TestWithParam<HostRow> {};

TEST_P(AccessRulesHostTest, isAllowedOrNot) {
    const HostRow& row = GetParam();
    EXPECT_EQ(rulesFor(row.address, row.port).allowsHost(row.host), row.allowed);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, AccessRulesHostTest,
    testing::Values(HostRow{"address", "127.0.0.1", 8080, "127.0.0.1:8080", true},
                    HostRow{"localhost", "127.0.0.1", 8080, "localhost:8080", true},
                    HostRow{"letterCase", "127.0.0.1", 8080, "LocalHost:8080", true},
                    HostRow{"ipv6", "::1", 8080, "[::1]:8080", true},
                    HostRow{"otherLoopback", "127.0.0.5", 8080, "127.0.0.5:8080", true},
                    HostRow{"everyInterface", "0.0.0.0", 8080, "localhost:8080", true},
                    HostRow{"schemesOwnPort", "127.0.0.1", 80, "localhost", true},
                    HostRow{"schemesOwnPortOfIpv6", "::1", 80, "[::1]", true},
                    HostRow{"extra", "127.0.0.1", 8080, "pad.example:8443", true},
                    HostRow{"extraOnOtherPort", "127.0.0.1", 8080, "pad.example:8080", false},
                    HostRow{"otherPort", "127.0.0.1", 8080, "127.0.0.1:8081", false},
                    HostRow{"noPort", "127.0.0.1", 8080, "127.0.0.1", false},
                    HostRow{"rebound", "127.0.0.1", 8080, "evil.example:8080", false},
                    HostRow{"suffix", "127.0.0.1", 8080, "localhost:8080.evil.example", false},
                    HostRow{"userInfo", "127.0.0.1", 8080, "x@localhost:8080", false},
                    HostRow{"localhostOfAnotherInterface", "192.0.2.1", 8080, "localhost:8080",
                            false},
                    HostRow{"empty", "127.0.0.1", 8080, "", false}),
    [](const auto& row) { return row.param.name; });

struct OriginRow {
    const char* name;
    const char* origin;
    bool allowed;
};

class AccessRulesOriginTest : public testing::TestWithParam<OriginRow> {};

TEST_P(AccessRulesOriginTest, isAllowedOrNot) {
    EXPECT_EQ(rulesFor("127.0.0.1", 8080).allowsOrigin(GetParam().origin, "localhost:8080"),
              GetParam().allowed);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, AccessRulesOriginTest,
    testing::Values(OriginRow{"same", "http://localhost:8080", true},
                    OriginRow{"extra", "https://pad.example:8443", true},
                    OriginRow{"missing", "", false}, OriginRow{"null", "null", false},
                    OriginRow{"otherName", "http://127.0.0.1:8080", false},
                    OriginRow{"otherScheme", "https://localhost:8080", false},
                    OriginRow{"otherPort", "http://localhost:8081", false},
                    OriginRow{"withPath", "http://localhost:8080/", false},
                    OriginRow{"longer", "http://localhost:8080.evil.example", false},
                    OriginRow{"schemeOnly", "http://", false}),
    [](const auto& row) { return row.param.name; });

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
    for (const std::string& good : {std::string("a"), std::string("A-Z_09"), std::string(64, 'x')})
        EXPECT_TRUE(AccessRules::isClientId(good)) << good;
    for (const std::string& bad : {std::string(), std::string(65, 'x'), std::string("a/b"),
                                   std::string("a b"), std::string("a\"b"), std::string("\xc3\xa4"),
                                   std::string("a\0b", 3), std::string("."), std::string("#")})
        EXPECT_FALSE(AccessRules::isClientId(bad)) << bad;
}

TEST(AccessRulesTest, randomTokensAreLongUsableAndDiffer) {
    std::set<std::string> tokens;
    for (int i = 0; i < 100; ++i) {
        const std::string token = AccessRules::randomToken();
        EXPECT_GE(token.size() * 4, 128u);
        EXPECT_TRUE(AccessRules::isUsableToken(token));
        EXPECT_TRUE(tokens.insert(token).second);
    }
}

}  // namespace
}  // namespace DOVA::gateway
