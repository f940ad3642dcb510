#include "PageChannels.h"

#include <gtest/gtest.h>

#include <string>

namespace DOVA::gateway {
namespace {

using Kind = PageChannels::Kind;

struct UpwardRow {
    const char* name;
    const char* channel;
    std::string text;
    Kind kind;
};

class PageChannelsUpwardTest : public testing::TestWithParam<UpwardRow> {};

TEST_P(PageChannelsUpwardTest, isClassified) {
    EXPECT_EQ(PageChannels::classify("me_1", GetParam().channel, GetParam().text), GetParam().kind);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, PageChannelsUpwardTest,
    testing::Values(
        UpwardRow{"own", ".", "anything", Kind::Own}, UpwardRow{"window", "./12", "{}", Kind::Own},
        UpwardRow{"belowWindow", "./12/x", "{}", Kind::Own},
        UpwardRow{"ready", "/dova2/web", R"({"clientReady":"me_1"})", Kind::ClientReady},
        UpwardRow{"readyWithSpace", "/dova2/web", " { \"clientReady\" :\n\"me_1\" }\t",
                  Kind::ClientReady},
        UpwardRow{"destroyed", "/dova2/web", R"({"clientDestroyed":"me_1"})",
                  Kind::ClientDestroyed},
        UpwardRow{"ownNameless", "./", "{}", Kind::Refused},
        UpwardRow{"dotDot", "..", "{}", Kind::Refused},
        UpwardRow{"dotAndLetters", ".x", "{}", Kind::Refused},
        UpwardRow{"ownInFull", "/dova2/web/me_1", "{}", Kind::Refused},
        UpwardRow{"otherPage", "/dova2/web/you", "{}", Kind::Refused},
        UpwardRow{"otherWindow", "/dova2/web/you/12", "{}", Kind::Refused},
        UpwardRow{"rootWithSlash", "/dova2/web/", R"({"clientReady":"me_1"})", Kind::Refused},
        UpwardRow{"model", "/tdom", R"({"snapshot":1})", Kind::Refused},
        UpwardRow{"somewhereElse", "/etc", "{}", Kind::Refused},
        UpwardRow{"readyForAnother", "/dova2/web", R"({"clientReady":"you"})", Kind::Refused},
        UpwardRow{"readyForLongerName", "/dova2/web", R"({"clientReady":"me_12"})", Kind::Refused},
        UpwardRow{"readyForShorterName", "/dova2/web", R"({"clientReady":"me_"})", Kind::Refused},
        UpwardRow{"spaceInName", "/dova2/web", R"({"clientReady":" me_1"})", Kind::Refused},
        UpwardRow{"readyWithMore", "/dova2/web", R"({"clientReady":"me_1","x":1})", Kind::Refused},
        UpwardRow{"twoDocuments", "/dova2/web", R"({"clientReady":"me_1"}{})", Kind::Refused},
        UpwardRow{"list", "/dova2/web", R"([{"clientReady":"me_1"}])", Kind::Refused},
        UpwardRow{"ping", "/dova2/web", R"({"ping":-1})", Kind::Refused},
        UpwardRow{"noText", "/dova2/web", "", Kind::Refused},
        UpwardRow{"cut", "/dova2/web", R"({"clientReady":"me_1")", Kind::Refused}),
    [](const auto& row) { return row.param.name; });

TEST(PageChannelsTest, channelsAreShortOnTheWireAndWholeOnTheBus) {
    const std::string own = PageChannels::own("me");
    for (const auto& [wire, bus] :
         {std::pair{".", "/dova2/web/me"}, std::pair{"./12", "/dova2/web/me/12"},
          std::pair{"./a/b", "/dova2/web/me/a/b"}}) {
        EXPECT_EQ(PageChannels::shorten(own, bus), wire);
        EXPECT_EQ(PageChannels::expand(own, wire), bus);
    }
}

TEST(PageChannelsTest, onlyPingsAreForEveryPage) {
    EXPECT_TRUE(PageChannels::isPing(R"({"ping":-1})"));
    EXPECT_TRUE(PageChannels::isPing("{ \"ping\" : {\"a\":1} }"));
    for (const char* const other : {"", "{}", R"({"pingpong":1})", R"({"clientReady":"ping"})",
                                    R"(["ping"])", R"({"clientDestroyed":"me"})"})
        EXPECT_FALSE(PageChannels::isPing(other)) << other;
}

}  // namespace
}  // namespace DOVA::gateway
