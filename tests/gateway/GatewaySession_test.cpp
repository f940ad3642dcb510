#include <random>
#include <string>
#include <vector>

#include "ModelPage.h"
#include "PageFixture.h"

namespace DOVA::gateway {
namespace {

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
    page->send("3,2\x1e./2\x1f{}");
    EXPECT_EQ(page->read(), "3,3") << "acknowledged also without an answer";
}

TEST_F(GatewaySessionTest, aBurstTravelsInOrderAndJoined) {
    start();
    const auto page = openFresh("me");
    for (int i = 1; i <= 10000; ++i)
        publish("/dova2/web/me/1", std::string(90, 'x') + std::to_string(i));
    ModelPage model;
    ASSERT_TRUE(model.hear(page->read()));
    EXPECT_LE(model.heard().size(), tdom::messaging::InProcessBus::largestBatch)
        << "the first ones leave before the last ones are delivered";
    int frames = 1;
    for (; model.heard().size() < 10000; ++frames)
        ASSERT_TRUE(model.hear(page->read()));
    EXPECT_EQ(model.heard().back(), "./1=" + std::string(90, 'x') + "10000");
    EXPECT_LE(frames, 12) << "about a megabyte, a frame for each delivery";
}

TEST_F(GatewaySessionTest, aDuplicatedTabTakesOver) {
    start();
    const auto first = openReady("me"), second = openPage("me", "&received=0");
    EXPECT_EQ(second->read(), R"({"session":"resumed","received":1})");
    EXPECT_EQ(first->closeCode(), 4001u);
    publish("/dova2/web/me", "for the second");
    EXPECT_THAT(second->read(), HasSubstr("for the second"));
}

TEST_F(GatewaySessionTest, aPageThatStaysAwayIsGone) {
    options.graceTime = std::chrono::milliseconds(30);
    start();
    openReady("me")->cut();
    expectSessionIsOver();
}

TEST_F(GatewaySessionTest, aPageThatComesBackInTimeIsNot) {
    options.graceTime = std::chrono::milliseconds(200);
    start();
    auto page = openReady("me");
    page->cut();
    page = openPage("me", "&received=0");
    page->read();
    passTime(std::chrono::milliseconds(300));
    EXPECT_EQ(heard.size(), 1u) << heard.back();
}

TEST_F(GatewaySessionTest, aGoodbyeEndsTheSession) {
    start();
    const auto page = openReady("me");
    page->send("2,0\x1e/dova2/web\x1f{\"clientDestroyed\":\"me\"}");
    EXPECT_EQ(page->closeCode(), 1000u);
    expectSessionIsOver();
}

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
