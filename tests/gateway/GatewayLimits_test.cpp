#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <string>

#include "ModelPage.h"
#include "PageFixture.h"

namespace DOVA::gateway {
namespace {

using namespace std::chrono_literals;
using testing::HasSubstr;

class GatewayLimitsTest : public PageFixture {
protected:
    /// The page's fault has ended its session, and the program knows.
    void expectSessionIsOver() {
        awaitHeard(R"(/dova2/web={"clientDestroyed":"me"})");
        EXPECT_THAT(openPage("me", "&received=0")->read(), HasSubstr("lost"));
    }
};

TEST_F(GatewayLimitsTest, anOversizedFrameIsRefused) {
    options.limits.upwardFrameBytes = 1000;
    start();
    const auto page = openReady("me");
    page->send("2,0\x1e.\x1f" + std::string(994, 'x'));
    awaitHeard("/dova2/web/me=" + std::string(994, 'x'));
    page->send("3,0\x1e.\x1f" + std::string(995, 'x'));
    EXPECT_EQ(page->closeCode(), 1009u);
    expectSessionIsOver();
}

TEST_F(GatewayLimitsTest, aBinaryFrameIsRefused) {
    start();
    const auto page = openReady("me");
    page->sendBinary("2,0\x1e.\x1fx");
    EXPECT_EQ(page->closeCode(), 1003u);
    EXPECT_EQ(page->closeText(), "text frames only");
    expectSessionIsOver();
}

TEST_F(GatewayLimitsTest, bytesThatAreNoTextAreRefused) {
    start();
    const auto page = openReady("me");
    page->send("2,0\x1e.\x1f\xff");
    EXPECT_EQ(page->closeCode(), 1007u);
    expectSessionIsOver();
}

TEST_F(GatewayLimitsTest, anUnmaskedFrameIsRefused) {
    start();
    const auto page = openReady("me");
    page->sendRaw("\x81\x02hi");
    EXPECT_EQ(page->closeCode(), 1002u);
    expectSessionIsOver();
}

/// The frame's head promises more than ever comes; meanwhile others are served.
TEST_F(GatewayLimitsTest, aPartialFrameIsCutAndItsSessionWaits) {
    options.limits.idleTime = 100ms;
    start();
    const auto page = openReady("me");
    page->sendRaw(
        std::string("\x81\xfe\x01\x00"
                    "abcd"
                    "partial",
                    15));
    passTime(200ms);
    EXPECT_EQ(page->closeCode(), 0u);
    const auto back = openPage("me", "&received=0");
    EXPECT_EQ(back->read(), R"({"session":"resumed","received":1})");
}

TEST_F(GatewayLimitsTest, aSilentPageIsPingedAndStays) {
    options.limits.idleTime = 80ms;
    start();
    const auto page = openReady("me");
    page->readInBackground();
    await([&] { return page->pings() >= 4; });
    EXPECT_FALSE(page->isOver());
}

TEST_F(GatewayLimitsTest, aDeadPageIsCut) {
    options.limits.idleTime = 80ms;
    options.graceTime = 0ms;
    start();
    const auto page = openReady("me");  // answers no ping, since it does not read
    awaitHeard(R"(/dova2/web={"clientDestroyed":"me"})");
}

TEST_F(GatewayLimitsTest, aPageThatStopsReadingIsCutAndCanComeBack) {
    options.limits.writeTime = 500ms;
    start();
    const auto page = newPage();
    page->narrowReceiveBuffer();
    page->open("token=0123456789abcdef&client=me");
    page->read();
    const std::string large(8 << 20, 'x');
    publish("/dova2/web/me", large);
    passTime(700ms);
    EXPECT_EQ(page->closeCode(), 0u) << "the rest of the frame must not come any more";
    const auto back = openPage("me", "&received=0");
    EXPECT_EQ(back->read(), R"({"session":"resumed","received":0})");
    EXPECT_EQ(back->read(), "1,0\x1e.\x1f" + large);
}

TEST_F(GatewayLimitsTest, whatAPageDoesNotAcknowledgeIsBounded) {
    options.limits.downwardBytes = 1 << 20;
    start();
    const auto page = openReady("me");
    for (int i = 0; i < 300; ++i)
        publish("/dova2/web/me", std::string(4000, 'x'));
    awaitHeard(R"(/dova2/web={"clientDestroyed":"me"})");
    EXPECT_EQ(page->closeCode(), 4000u);
    expectSessionIsOver();
}

TEST_F(GatewayLimitsTest, aFloodIsSlowedDownAndHandledInOrder) {
    options.limits.upwardRecordsPerSecond = 2000;
    options.limits.upwardBurstRecords = 100;
    start();
    const auto page = openFresh("me");
    const auto before = std::chrono::steady_clock::now();
    int number = 0;
    for (int frame = 0; frame < 20; ++frame) {
        std::string text = std::to_string(number + 1) + ",0";
        for (int i = 0; i < 25; ++i)
            text += "\x1e./1\x1f" + std::to_string(number++);
        page->send(text);
    }
    await([&] { return heard.size() == 500; });
    EXPECT_GE(std::chrono::steady_clock::now() - before, 190ms) << "400 beyond the burst";
    for (int i = 0; i < 500; ++i)
        ASSERT_EQ(heard[static_cast<std::size_t>(i)], "/dova2/web/me/1=" + std::to_string(i));
}

/// One frame of far more records than the rate allows keeps nobody else waiting, and its page is
/// not taken for dead meanwhile.
TEST_F(GatewayLimitsTest, aFloodInOneFrameHoldsUpOnlyItsOwnPage) {
    options.limits.upwardRecordsPerSecond = 2000;
    options.limits.upwardBurstRecords = 100;
    options.limits.idleTime = 100ms;
    start();
    const auto flooding = openFresh("flooding");
    const auto calm = openFresh("calm");
    std::string text = "1,0";
    for (int i = 0; i < 800; ++i)
        text += "\x1e.\x1f";
    flooding->send(text);
    calm->send(
        "1,0\x1e.\x1f"
        "calm");
    awaitHeard("/dova2/web/calm=calm");
    EXPECT_LT(heard.size(), 800u);
    flooding->readInBackground();
    calm->readInBackground();
    await([&] { return heard.size() == 801; });
    EXPECT_FALSE(flooding->isOver());
}

struct HandshakeRow {
    const char* name;
    const char* query;
    TestPage::Adjust adjust;
    unsigned status;
};

class GatewayHandshakeTest : public PageFixture,
                             public testing::WithParamInterface<HandshakeRow> {};

TEST_P(GatewayHandshakeTest, isAnsweredWithItsStatus) {
    start();
    EXPECT_EQ(newPage()->open(GetParam().query, GetParam().adjust), GetParam().status);
}

using Field = boost::beast::http::field;

INSTANTIATE_TEST_SUITE_P(
    Rows, GatewayHandshakeTest,
    testing::Values(HandshakeRow{"good", "token=0123456789abcdef&client=me", {}, 101},
                    HandshakeRow{"noToken", "client=me", {}, 401},
                    HandshakeRow{"wrongToken", "token=fedcba9876543210&client=me", {}, 401},
                    HandshakeRow{"wrongOrigin", "token=0123456789abcdef&client=me",
                                 [](auto& r) { r.set(Field::origin, "http://evil.example"); }, 403},
                    HandshakeRow{"wrongHost", "token=0123456789abcdef&client=me",
                                 [](auto& r) { r.set(Field::host, "evil.example"); }, 403},
                    HandshakeRow{"noSubProtocol", "token=0123456789abcdef&client=me",
                                 [](auto& r) { r.erase(Field::sec_websocket_protocol); }, 400},
                    HandshakeRow{"noKey", "token=0123456789abcdef&client=me",
                                 [](auto& r) { r.erase(Field::sec_websocket_key); }, 400}),
    [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace DOVA::gateway
