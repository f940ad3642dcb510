#include <algorithm>
#include <chrono>
#include <string>
#include <vector>

#include "GatewayFixture.h"

namespace DOVA::gateway {
namespace {

using namespace std::chrono_literals;

class GatewayLimitsTest : public GatewayFixture {};

struct FaultRow {
    const char* name;
    void (TestPage::*send)(const std::string& bytes);
    std::string bytes;
    const char* end;
};

class GatewayFaultTest : public GatewayFixture, public testing::WithParamInterface<FaultRow> {};

TEST_P(GatewayFaultTest, closesWithItsCodeAndReasonAndEndsTheSession) {
    options.limits.upwardFrameBytes = 1000;
    options.sessions.limits.upwardRecordsPerSecond = 10;
    options.sessions.limits.upwardBurstRecords = 400;
    start();
    const auto page = openReady("me");
    page->send("2,0\x1e.\x1f" + std::string(994, 'x'));
    awaitHeard("/dova2/web/me=" + std::string(994, 'x'));
    testing::internal::CaptureStderr();
    (*page.*GetParam().send)(GetParam().bytes);
    EXPECT_EQ(page->end(), GetParam().end);
    const bool isLogged =
        testing::internal::GetCapturedStderr().find("page me: ") != std::string::npos;
    EXPECT_NE(isLogged, GetParam().end == std::string("1000 session ended"));
    expectSessionIsOver();
}

std::string thousand(const std::string& frame) {
    std::string result;
    for (int count = 0; count < 1000; ++count) {
        result += frame;
    }
    return result;
}

// Beast answers what is no WebSocket message of ours by itself, with the code alone.
const FaultRow s_faults[] = {
    {"oversized", &TestPage::send, "3,0\x1e.\x1f" + std::string(995, 'x'), "1009 "},
    {"noText", &TestPage::send, "3,0\x1e.\x1f\xff", "1007 "},
    {"unmasked", &TestPage::sendRaw, "\x81\x02hi", "1002 "},
    {"pings", &TestPage::sendRaw, thousand("\x89\x80mask"), "4003 too many control frames"},
    {"empties", &TestPage::sendRaw, "\x01\x80mask" + thousand({"\0\x80mask", 6}),
     "4003 too many empty frames"},
    {"binary", &TestPage::sendBinary, "3,0\x1e.\x1fx", "1003 text frames only"},
    {"malformed", &TestPage::send, "hello", "4003 malformed frame"},
    {"false", &TestPage::send, "3,1", "4003 acknowledges what was never sent"},
    {"otherPage", &TestPage::send, "3,0\x1e/dova2/web/you\x1f{}", "4004 channel not allowed"},
    {"goodbye", &TestPage::send, "3,0\x1e/dova2/web\x1f{\"clientDestroyed\":\"me\"}",
     "1000 session ended"}};

INSTANTIATE_TEST_SUITE_P(Rows, GatewayFaultTest, testing::ValuesIn(s_faults),
                         [](const auto& row) { return row.param.name; });

TEST_F(GatewayLimitsTest, aSilentPageIsPingedAndStaysButOneThatDiedInAFrameIsCut) {
    options.limits.idleTime = 600ms;
    options.sessions.graceTime = 0ms;
    start();
    const auto dead = openReady("me");  // answers no ping, since it does not read
    // The frame's head promises more than ever comes.
    dead->sendRaw(std::string("\x81\xfe\x01\x00mask_partial", 16));
    const auto silent = openFresh("silent");
    silent->readInBackground();
    awaitHeard(R"(/dova2/web={"clientDestroyed":"me"})");
    await([&] { return silent->pings >= 3; });
    EXPECT_FALSE(silent->isOver);
}

TEST_F(GatewayLimitsTest, aPageThatStopsReadingIsCutAndCanComeBack) {
    options.limits.writeTime = 1s;
    start();
    const auto page = openReady("me");
    const std::string large(8 << 20, 'x');
    publish("/dova2/web/me", large);
    passTime(300ms);
    EXPECT_EQ(page->read(), "1,1\x1e.\x1f" + large) << "slow, but not too slow";
    publish("/dova2/web/me", large);
    passTime(1300ms);
    EXPECT_EQ(page->end(), "0 ") << "the rest of the frame must not come any more";
    EXPECT_EQ(openAgain(1)->read(), "1,1\x1e.\x1f" + large);
}

TEST_F(GatewayLimitsTest, whatAPageDoesNotAcknowledgeIsBounded) {
    options.sessions.limits.downwardBytes = 1 << 20;
    start();
    const auto page = openReady("me");
    for (int i = 0; i < 300; ++i) {
        publish("/dova2/web/me", std::string(4000, 'x'));
    }
    EXPECT_EQ(page->end(), "4000 too much is unacknowledged");
    expectSessionIsOver();
}

/// A page that sends more than its rate is slowed down; it keeps nobody else waiting, and is not
/// taken for dead meanwhile.
TEST_F(GatewayLimitsTest, aFloodIsHandledInOrderAndHoldsUpOnlyItsOwnPage) {
    options.sessions.limits.upwardRecordsPerSecond = 2;
    options.sessions.limits.upwardBurstRecords = 100;
    options.limits.idleTime = 300ms;
    start();
    const auto flooding = openFresh("flooding"), calm = openFresh("calm");
    const auto before = std::chrono::steady_clock::now();
    std::vector<std::string> expected;
    for (int frame = 0; frame < 2; ++frame) {
        std::string text = std::to_string(frame * 51 + 1) + ",0";
        for (int i = 0; i < 51; ++i) {
            expected.push_back("/dova2/web/flooding=" + std::to_string(expected.size()));
            text += "\x1e.\x1f" + std::to_string(expected.size() - 1);
        }
        flooding->send(text);
    }
    calm->send("1,0\x1e.\x1fhere");
    awaitHeard("/dova2/web/calm=here");
    EXPECT_LT(heard.size(), 102u);
    heard.erase(std::find(heard.begin(), heard.end(), "/dova2/web/calm=here"));
    flooding->readInBackground();
    await([&] { return heard.size() == 102; });
    EXPECT_GE(std::chrono::steady_clock::now() - before, 990ms) << "2 beyond the burst";
    EXPECT_EQ(heard, expected);
    passTime(100ms);
    EXPECT_FALSE(flooding->isOver);
}

}  // namespace
}  // namespace DOVA::gateway
