#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "ModelPage.h"
#include "PageFixture.h"

namespace DOVA::gateway {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class GatewaySessionTest : public PageFixture {};

TEST_F(GatewaySessionTest, answersAnActionInOneFrameWithTheAcknowledgement) {
    start();
    bus->subscribe(program, "/dova2/web/me/1", [this](auto&, auto&) {
        publish("/dova2/web/me/1", "[1]");
        publish("/dova2/web/me/1", "[2]");
    });
    const auto page = openReady("me");
    page->send("2,0\x1e./1\x1f{\"event\":\"onClick\"}");
    EXPECT_EQ(page->read(), "1,2\x1e./1\x1f[1]\x1e./1\x1f[2]");
}

TEST_F(GatewaySessionTest, acknowledgesAlsoWithoutAnAnswer) {
    start();
    const auto page = openFresh("me");
    page->send("1,0\x1e./1\x1f{}\x1e./1\x1f{}");
    EXPECT_EQ(page->read(), "1,2");
    EXPECT_THAT(heard, ElementsAre("/dova2/web/me/1={}", "/dova2/web/me/1={}"));
}

TEST_F(GatewaySessionTest, aBurstTravelsInOrderAndJoined) {
    start();
    const auto page = openFresh("me");
    for (int i = 1; i <= 10000; ++i)
        publish("/dova2/web/me/1", std::string(90, 'x') + std::to_string(i));
    ModelPage model;
    int frames = 0;
    for (; model.heard().size() < 10000; ++frames)
        ASSERT_TRUE(model.hear(page->read()));
    EXPECT_EQ(model.heard().front(), "./1=" + std::string(90, 'x') + "1");
    EXPECT_EQ(model.heard().back(), "./1=" + std::string(90, 'x') + "10000");
    EXPECT_LT(frames, 10) << "about a megabyte in frames of a quarter";
}

TEST_F(GatewaySessionTest, replaysWhatAPageMissed) {
    start();
    auto page = openReady("me");
    publish("/dova2/web/me", "one");
    publish("/dova2/web/me", "two");
    page->read();
    page->cut();
    publish("/dova2/web/me", "three");
    page = openPage("me", "&received=1");
    EXPECT_EQ(page->read(), R"({"session":"resumed","received":1})");
    ModelPage model;
    std::string replay;
    while (replay.find("three") == std::string::npos)
        replay += page->read();
    EXPECT_EQ(replay,
              "2,1\x1e.\x1ftwo"
              "3,1\x1e.\x1fthree");
}

TEST_F(GatewaySessionTest, anUnknownSessionIsToldToStartAfresh) {
    start();
    const auto page = openPage("me", "&received=5");
    EXPECT_EQ(page->read(), R"({"session":"lost","reason":"the session is unknown or expired"})");
    EXPECT_EQ(page->closeCode(), 4000u);
}

TEST_F(GatewaySessionTest, theNewestPageOwnsTheProgram) {
    start();
    const auto first = openReady("first");
    const auto second = openReady("second");
    EXPECT_EQ(first->closeCode(), 4002u);
    EXPECT_EQ(first->closeText(), "taken over by another page");
    publish("/dova2/web/second", "still served");
    EXPECT_THAT(second->read(), HasSubstr("still served"));
}

TEST_F(GatewaySessionTest, aDuplicatedTabTakesOver) {
    start();
    const auto first = openReady("me");
    const auto second = openPage("me", "&received=0");
    EXPECT_EQ(second->read(), R"({"session":"resumed","received":1})");
    EXPECT_EQ(first->closeCode(), 4001u);
    EXPECT_EQ(first->closeText(), "opened in another tab");
    publish("/dova2/web/me", "for the second");
    EXPECT_THAT(second->read(), HasSubstr("for the second"));
}

TEST_F(GatewaySessionTest, aPageThatStaysAwayIsGone) {
    options.graceTime = std::chrono::milliseconds(30);
    start();
    const auto page = openReady("me");
    page->cut();
    awaitHeard(R"(/dova2/web={"clientDestroyed":"me"})");
    EXPECT_THAT(openPage("me", "&received=0")->read(), HasSubstr("lost"));
}

TEST_F(GatewaySessionTest, aPageThatComesBackInTimeIsNot) {
    options.graceTime = std::chrono::milliseconds(200);
    start();
    auto page = openReady("me");
    page->cut();
    page = openPage("me", "&received=0");
    page->read();
    passTime(std::chrono::milliseconds(300));
    EXPECT_THAT(heard, testing::Not(testing::Contains(HasSubstr("clientDestroyed"))));
}

TEST_F(GatewaySessionTest, aGoodbyeEndsTheSession) {
    start();
    const auto page = openReady("me");
    page->send("2,0\x1e/dova2/web\x1f{\"clientDestroyed\":\"me\"}");
    EXPECT_EQ(page->closeCode(), 1000u);
    awaitHeard(R"(/dova2/web={"clientDestroyed":"me"})");
}

struct FaultRow {
    const char* name;
    std::string frame;
    unsigned code;
};

class GatewayFaultTest : public PageFixture, public testing::WithParamInterface<FaultRow> {};

TEST_P(GatewayFaultTest, closesWithItsCodeAndEndsTheSession) {
    start();
    const auto page = openReady("me");
    page->send(GetParam().frame);
    EXPECT_EQ(page->closeCode(), GetParam().code);
    EXPECT_NE(page->closeText(), "");
    awaitHeard(R"(/dova2/web={"clientDestroyed":"me"})");
    EXPECT_THAT(openPage("me", "&received=0")->read(), HasSubstr("lost"));
}

INSTANTIATE_TEST_SUITE_P(Rows, GatewayFaultTest,
                         testing::Values(FaultRow{"malformed", "hello", 4003},
                                         FaultRow{"gap", "3,0\x1e.\x1f{}", 4003},
                                         FaultRow{"falseAcknowledgement", "2,1\x1e.\x1f{}", 4003},
                                         FaultRow{"otherPage", "2,0\x1e/dova2/web/you\x1f{}", 4004},
                                         FaultRow{"model", "2,0\x1e/tdom\x1f{}", 4004},
                                         FaultRow{"readyForAnother",
                                                  "2,0\x1e/dova2/web\x1f{\"clientReady\":\"you\"}",
                                                  4004}),
                         [](const auto& row) { return row.param.name; });

/// Over real sockets: the page's connection breaks at every opportunity that chance finds.
TEST_F(GatewaySessionTest, nothingIsLostOrDoubledOverManyCuts) {
    const unsigned seed = std::random_device()();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    start();
    bus->subscribeTree(program, "/dova2/web/me/echo",
                       [this](auto& channel, auto& text) { publish(channel, text); });
    ModelPage model;
    auto page = openFresh("me");
    std::vector<std::string> expectedUp, expectedDown;
    for (int i = 0; i < 200 || model.hasUnacknowledged() || model.heard() != expectedDown; ++i) {
        if (i < 200) {
            model.act("./echo", std::to_string(i));
            expectedUp.push_back("/dova2/web/me/echo=" + std::to_string(i));
            expectedDown.push_back("./echo=" + std::to_string(i));
        }
        page->send(model.frame());
        if (random() % 2 == 0)
            loop.poll();
        if (random() % 4 == 0 || i == 199) {
            page->cut();
            page = openPage("me", "&received=" + std::to_string(model.received()));
            const std::string control = page->read();
            ASSERT_THAT(control, HasSubstr("resumed"));
            model.resumed(std::stoull(control.substr(control.find("received\":") + 10)));
        } else if (model.hasUnacknowledged() || model.heard() != expectedDown) {
            ASSERT_TRUE(model.hear(page->read()));
        }
    }
    EXPECT_EQ(heard, expectedUp);
    EXPECT_EQ(model.heard(), expectedDown);
}

}  // namespace
}  // namespace DOVA::gateway
