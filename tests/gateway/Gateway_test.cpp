#include "gateway/Gateway.h"

#include <system_error>

#include "GatewayFixture.h"

namespace DOVA::gateway {
namespace {

using namespace std::chrono_literals;

class GatewayTest : public GatewayFixture {};

TEST_F(GatewayTest, tellsWhereItIsAndThatAPortIsTaken) {
    options.token.clear();
    start();
    options.port = gateway->port();
    const std::string where = "127.0.0.1:" + std::to_string(options.port);
    EXPECT_EQ(gateway->address(), "http://" + where + "/#" + gateway->token());
    Gateway second(loop, options);
    EXPECT_EQ(second.address(), "");
    try {
        second.start();
        FAIL() << "two listen on one port";
    } catch (const std::system_error& error) {
        EXPECT_EQ(std::string(error.what()),
                  "cannot listen on " + where + ": Address already in use");
    }
    const std::string token = gateway->token();
    EXPECT_GE(token.size() * 4, 128u);
    gateway.reset();
    start();
    EXPECT_NE(gateway->token(), token);
    options.token = gateway->token();
    EXPECT_EQ(openFresh("me")->subProtocol, "dova.gateway.1");
}

TEST_F(GatewayTest, aPageHearsAtOnceAndIsAcknowledgedSoon) {
    options.sessions.limits.acknowledgeTime = 20ms;
    start();
    bus->subscribe(program, "/dova2/web/me/1", [this](auto&, auto&) {
        publish("/dova2/web/me/1", "[1]");
        publish("/dova2/web/me/1", "[2]");
    });
    const auto page = openFresh("me");
    page->send("1,0\x1e./1\x1f{\"event\":\"onClick\"}");
    EXPECT_EQ(page->read(), "1,1\x1e./1\x1f[1]\x1e./1\x1f[2]") << "the answers in one frame";
    passTime(60ms);
    publish("/dova2/web/me", "x");
    EXPECT_EQ(page->read(), "3,1\x1e.\x1fx") << "what is acknowledged is not acknowledged again";
    for (const std::string number : {"2", "3"}) {
        page->send(number + ",3\x1e./2\x1f{}");
        EXPECT_EQ(page->read(), "4," + number) << "acknowledged also without an answer";
    }
}

TEST_F(GatewayTest, aPageThatAsksIsAnsweredAtOnce) {
    options.sessions.limits.acknowledgeTime = 60s;
    start();
    const auto page = openFresh("me");
    for (int round = 0; round < 2; ++round) {
        page->send("1,0");
        EXPECT_EQ(page->read(), "1,0");
    }
    page->send("1,0\x1e./1\x1f{}");
    page->send("2,0");
    EXPECT_EQ(page->read(), "1,1") << "the answer tells what was handled";
    publish("/dova2/web/me", "x");
    EXPECT_EQ(page->read(), "1,1\x1e.\x1fx");
    page->send("2,1");  // an acknowledgement, not a question
    page->send("2,1");
    EXPECT_EQ(page->read(), "2,1");
    publish("/dova2/web/me", "y");
    EXPECT_EQ(page->read(), "2,1\x1e.\x1fy") << "there was one answer";
}

TEST_F(GatewayTest, aBurstTravelsInOrderAndJoined) {
    start();
    const auto page = openFresh("me");
    std::string expected, got;
    for (int i = 0; i < 10000; ++i) {
        const std::string text = std::string(90, 'x') + std::to_string(i);
        publish("/dova2/web/me/1", text);
        expected += "\x1e./1\x1f" + text;
    }
    int frames = 0;
    for (; got.size() < expected.size(); ++frames) {
        const std::string frame = page->read();
        got += frame.substr(frame.find('\x1e'));
        if (frames == 0) {
            EXPECT_LE(std::count(got.begin(), got.end(), '\x1e'), 1000)
                << "the first ones leave before the last ones are delivered";
        }
    }
    EXPECT_TRUE(got == expected);
    EXPECT_LE(frames, 12) << "a frame for each delivery";
}

TEST_F(GatewayTest, aPageIsReplacedByItsDuplicateAndByOthers) {
    start();
    const auto first = openReady("me");
    publish("/dova2/web/me", "not acknowledged");
    first->read();
    const auto second = openAgain(1);
    EXPECT_EQ(first->end(), "4001 opened in another tab");
    EXPECT_EQ(second->read(), "1,1\x1e.\x1fnot acknowledged");
    const auto other = openReady("other");
    EXPECT_EQ(second->end(), "4002 taken over by another page");
}

TEST_F(GatewayTest, whatGetsLostOnTheWayIsSaidAgain) {
    start();
    const auto page = openReady("me");
    page->send("3,0\x1e.\x1fthe second");
    EXPECT_EQ(page->end(), "1012 a number is missing");
    const auto back = openAgain(1);
    back->send("2,0\x1e.\x1fthe first\x1e.\x1fthe second");
    awaitHeard("/dova2/web/me=the second");
    publish("/dova2/web/me", "not acknowledged");
    EXPECT_EQ(back->read().substr(0, 2), "1,");
    EXPECT_EQ(back->read(), "2,3") << "for a page that never got it";
    EXPECT_THAT(heard, testing::Not(testing::Contains(testing::HasSubstr("clientDestroyed"))));
}

TEST_F(GatewayTest, aPageMaySayThatItIsReadyBeforeItIsIn) {
    start();
    const auto former = openReady("former");
    const auto page = openPage("me", "&ready=1");
    const std::string ready = R"(/dova2/web={"clientReady":"me"})";
    awaitHeard(ready);
    publish("/dova2/web/me", "its window");
    EXPECT_EQ(page->read(), R"({"session":"new","received":0})");
    EXPECT_EQ(page->read(), "1,0\x1e.\x1fits window");
    EXPECT_EQ(former->end(), "4002 taken over by another page");
    EXPECT_EQ(openPage("me", "&received=1&ready=1")->read(),
              R"({"session":"resumed","received":0})");
    EXPECT_EQ(std::count(heard.begin(), heard.end(), ready), 1) << "one that is back has said it";
}

TEST_F(GatewayTest, pagesThatStayAwayAreGoneEachAtItsTime) {
    options.sessions.graceTime = 60ms;
    start();
    const auto late = openReady("me"), early = openFresh("early");
    early->cut();
    passTime(30ms);
    late->cut();
    expectSessionIsOver();
}

TEST_F(GatewayTest, aPageThatSaysThatItGoesIsGoneSooner) {
    options.sessions.reloadTime = 40ms;
    start();
    openReady("me")->leave();
    expectSessionIsOver();
}

TEST_F(GatewayTest, stopSendsWhatWaitsAndSaysGoodbye) {
    start();
    const auto first = openFresh("first"), second = openFresh("second");
    publish("/dova2/web/first/1", "last words");
    int calls = 0;
    const auto count = [&] { ++calls; };
    gateway->stop(count);
    gateway->stop(count);
    EXPECT_EQ(first->read(), "1,0\x1e./1\x1flast words");
    EXPECT_EQ(first->end(), "1001 program ended");
    EXPECT_EQ(second->end(), "1001 program ended");
    await([&] { return calls == 2; });
    EXPECT_THROW(openPage("late"), std::exception);
    gateway->stop(count);
    Gateway neverStarted(loop, options);
    neverStarted.stop(count);
    await([&] { return calls == 4; });
}

TEST_F(GatewayTest, stopIsBoundedByPagesThatDoNotAnswer) {
    options.limits.stopTime = 100ms;
    options.limits.writeTime = options.limits.idleTime = options.limits.handshakeTime = 60s;
    start();
    const auto silent = openFresh("silent");
    publish("/dova2/web/silent", std::string(32 << 20, 'x'));
    bus->deliver();
    bool stopped = false;
    gateway->stop([&] { stopped = true; });
    await([&] { return stopped; });
}

TEST_F(GatewayTest, mayGoWhileItsConnectionsAreServedAndItsEndIsAwaited) {
    start();
    const auto page = openFresh("me");
    publish("/dova2/web/me", std::string(8 << 20, 'x'));
    bus->deliver();
    loop.poll();
    gateway->stop([] { FAIL() << "nobody waits any more"; });
    gateway.reset();
    EXPECT_EQ(page->end(), "0 ");
    publish("/dova2/web/me", "nobody there");
    loop.poll();
}

TEST_F(GatewayTest, mayGoInAProgramsHandlerAndWithTheWaiterForItsEnd) {
    start();
    bus->subscribe(program, "/dova2/web/me/1", [this](auto&, auto&) { gateway.reset(); });
    auto page = openFresh("me");
    page->send("1,0\x1e./1\x1fgo\x1e./1\x1fonce more");
    EXPECT_EQ(page->end(), "0 ");
    start();
    page = openFresh("me");
    gateway->stop([this] { gateway.reset(); });
    EXPECT_EQ(page->end(), "1001 program ended");
    await([this] { return gateway == nullptr; });
}

}  // namespace
}  // namespace DOVA::gateway
