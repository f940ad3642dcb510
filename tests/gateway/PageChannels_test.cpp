#include "PageChannels.h"

#include <gtest/gtest.h>

namespace DOVA::gateway {
namespace {

using Kind = PageChannels::Kind;

struct LifeCycleRow {
    const char* name;
    const char* text;
    Kind kind;
};

TEST(PageChannelsTest, aPageSpeaksOfItselfAlone) {
    for (const LifeCycleRow& row :
         {LifeCycleRow{"ready", " { \"clientReady\" :\n\"me_1\" }\t", Kind::ClientReady},
          LifeCycleRow{"destroyed", R"({"clientDestroyed":"me_1"})", Kind::ClientDestroyed},
          LifeCycleRow{"longerName", R"({"clientReady":"me_12"})", Kind::Refused},
          LifeCycleRow{"shorterName", R"({"clientReady":"me_"})", Kind::Refused},
          LifeCycleRow{"spaceInName", R"({"clientReady":" me_1"})", Kind::Refused},
          LifeCycleRow{"twoDocuments", R"({"clientReady":"me_1"}{})", Kind::Refused},
          LifeCycleRow{"cut", R"({"clientReady":"me_1")", Kind::Refused}})
        EXPECT_EQ(PageChannels::classify("me_1", "/dova2/web", row.text), row.kind) << row.name;
    EXPECT_EQ(PageChannels::classify("me_1", "/dova2/web/", R"({"clientReady":"me_1"})"),
              Kind::Refused);
}

TEST(PageChannelsTest, onlyPingsAreForEveryPage) {
    EXPECT_TRUE(PageChannels::isPing("{ \"ping\" : {\"a\":1} }"));
    for (const char* const other :
         {"", "{}", R"({"pingpong":1})", R"({"clientReady":"ping"})", R"(["ping"])"})
        EXPECT_FALSE(PageChannels::isPing(other)) << other;
}

}  // namespace
}  // namespace DOVA::gateway
