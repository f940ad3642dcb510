#include <algorithm>
#include <chrono>
#include <string>
#include <vector>

#include "ModelPage.h"
#include "PageFixture.h"
#include "support/RowNames.h"

namespace DOVA::gateway {
namespace {

using namespace std::chrono_literals;

class GatewayLimitsTest : public PageFixture {};

using DOVA::test::operator<<;

struct FaultRow {
    const char* name;
    void (TestPage::*send)(const std::string& bytes);
    std::string bytes;
    unsigned code;
};

class GatewayFaultTest : public PageFixture, public testing::WithParamInterface<FaultRow> {};

TEST_P(GatewayFaultTest, closesWithItsCodeAndEndsTheSession) {
    options.limits.upwardFrameBytes = 1000;
    start();
    const auto page = openReady("me");
    page->send("2,0\x1e.\x1f" + std::string(994, 'x'));
    awaitHeard("/dova2/web/me=" + std::string(994, 'x'));
    (*page.*GetParam().send)(GetParam().bytes);
    EXPECT_EQ(page->closeCode(), GetParam().code);
    expectSessionIsOver();
}

INSTANTIATE_TEST_SUITE_P(
    Rows, GatewayFaultTest,
    testing::Values(FaultRow{"oversized", &TestPage::send, "3,0\x1e.\x1f" + std::string(995, 'x'),
                             1009},
                    FaultRow{"binary", &TestPage::sendBinary, "3,0\x1e.\x1fx", 1003},
                    FaultRow{"noText", &TestPage::send, "3,0\x1e.\x1f\xff", 1007},
                    FaultRow{"unmasked", &TestPage::sendRaw, "\x81\x02hi", 1002},
                    FaultRow{"malformed", &TestPage::send, "hello", 4003},
                    FaultRow{"gap", &TestPage::send, "4,0\x1e.\x1f{}", 4003},
                    FaultRow{"otherPage", &TestPage::send, "3,0\x1e/dova2/web/you\x1f{}", 4004}),
    [](const auto& row) { return row.param.name; });

/// The frame's head promises more than ever comes; meanwhile others are served.
TEST_F(GatewayLimitsTest, aPartialFrameIsCutAndItsSessionWaits) {
    options.limits.idleTime = 100ms;
    start();
    const auto page = openReady("me");
    page->sendRaw(std::string("\x81\xfe\x01\x00mask_partial", 16));
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
    const auto page = openFresh("me");
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
    EXPECT_EQ(page->closeCode(), 4000u);
    expectSessionIsOver();
}

/// A page that sends far more than its rate is slowed down; it keeps nobody else waiting, and is
/// not taken for dead meanwhile.
TEST_F(GatewayLimitsTest, aFloodIsHandledInOrderAndHoldsUpOnlyItsOwnPage) {
    options.limits.upwardRecordsPerSecond = 2000;
    options.limits.upwardBurstRecords = 100;
    options.limits.idleTime = 100ms;
    start();
    const auto flooding = openFresh("flooding"), calm = openFresh("calm");
    const auto before = std::chrono::steady_clock::now();
    ModelPage flood;
    std::vector<std::string> expected;
    for (int i = 0; i < 800; ++i) {
        flood.act(".", std::to_string(i));
        expected.push_back("/dova2/web/flooding=" + std::to_string(i));
        if (i % 400 == 99)
            flooding->send(flood.frame());
    }
    flooding->send(flood.frame());
    calm->send("1,0\x1e.\x1fhere");
    awaitHeard("/dova2/web/calm=here");
    EXPECT_LT(heard.size(), 800u);
    heard.erase(std::find(heard.begin(), heard.end(), "/dova2/web/calm=here"));
    flooding->readInBackground();
    calm->readInBackground();
    await([&] { return heard.size() == 800; });
    EXPECT_GE(std::chrono::steady_clock::now() - before, 340ms) << "700 beyond the burst";
    EXPECT_EQ(heard, expected);
    EXPECT_FALSE(flooding->isOver());
}

using Field = boost::beast::http::field;

/// No more than that the gateway does what is decided about each request.
TEST_F(GatewayLimitsTest, aBadHandshakeIsRefused) {
    start();
    const std::string good = "token=0123456789abcdef&client=me";
    EXPECT_EQ(newPage()->open("client=me"), 401u);
    EXPECT_EQ(newPage()->open("token=fedcba9876543210&client=me"), 401u);
    for (const Field field : {Field::origin, Field::host})
        EXPECT_EQ(newPage()->open(good, [=](auto& r) { r.set(field, "evil.example"); }), 403u);
    EXPECT_EQ(newPage()->open(good, [](auto& r) { r.erase(Field::sec_websocket_key); }), 400u);
    EXPECT_EQ(newPage()->open(good), 101u);
}

}  // namespace
}  // namespace DOVA::gateway
