#include "SessionRegistry.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "RegistryFixture.h"

namespace DOVA::gateway {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

using SessionRegistryTest = RegistryFixture;

TEST_F(SessionRegistryTest, aPageHearsItsOwnChannelsAndPings) {
    NotingLink link;
    const auto opening = registry->open("me", {}, link);
    EXPECT_EQ(opening.control, R"({"session":"new","received":0})");
    say("/dova2/web/me", "own");
    say("/dova2/web/me/12", "window");
    say("/dova2/web/you/12", "another page's");
    say("/dova2/web/mean", "a longer name");
    say("/dova2/web", R"({"ping":-1})");
    say("/dova2/web", R"({"clientReady":"you"})");
    EXPECT_EQ(waiting(*opening.session),
              "\x1e.\x1fown\x1e./12\x1fwindow\x1e/dova2/web\x1f{\"ping\":-1}");
    EXPECT_EQ(link.asked, 3);
}

TEST_F(SessionRegistryTest, textsThatCannotTravelAreDropped) {
    NotingLink link;
    const auto opening = registry->open("me", {}, link);
    for (const char* const bad : {"a\x1e", "\x1f", "\xff", "\xe2\x82"})
        say("/dova2/web/me", bad);
    say("/dova2/web/me/\x1f", "bad channel");
    say("/dova2/web/me", "good");
    EXPECT_EQ(waiting(*opening.session), "\x1e.\x1fgood");
}

TEST_F(SessionRegistryTest, whatAPageSaysReachesTheBus) {
    NotingLink link;
    const auto session = registry->open("me", {}, link).session;
    handle(session, ".", "own");
    handle(session, "./12", "window");
    handle(session, "/dova2/web", " {\"clientReady\" : \"me\"} ");
    EXPECT_THAT(programHeard, ElementsAre("/dova2/web/me=own", "/dova2/web/me/12=window",
                                          R"(/dova2/web={"clientReady":"me"})"));
    EXPECT_EQ(registry->handle(session, {"/tdom", "{}"}), &close_reason::kChannelNotAllowed);
}

TEST_F(SessionRegistryTest, clientReadyTakesTheProgramOver) {
    NotingLink first, second, third;
    ready(registry->open("first", {}, first).session);
    const auto waitingSession = registry->open("second", {}, second).session;
    registry->disconnected(*waitingSession, second, now);
    ready(registry->open("third", {}, third).session);
    EXPECT_EQ(first.ended, 4002);
    EXPECT_EQ(third.ended, 0);
    EXPECT_EQ(registry->size(), 1u);
    registry->endExpired(now + 1h);
    bus->deliver();
    EXPECT_THAT(programHeard, IsEmpty()) << "the program replaces its page itself";
}

TEST_F(SessionRegistryTest, aSecondSocketTakesTheSessionOver) {
    NotingLink former, latter;
    const auto session = registry->open("me", {}, former).session;
    say("/dova2/web/me", "kept");
    const auto opening = registry->open("me", 0, latter);
    EXPECT_EQ(opening.session, session);
    EXPECT_EQ(former.ended, 4001);
    registry->disconnected(*session, former, now);
    say("/dova2/web/me", "for the latter");
    EXPECT_EQ(latter.asked, 1);
    EXPECT_EQ(registry->nextExpiry(), std::nullopt) << "the former's end means nothing now";
}

TEST_F(SessionRegistryTest, aFreshStartDropsTheOldSessionSilently) {
    NotingLink former, latter;
    ready(registry->open("me", {}, former).session);
    say("/dova2/web/me", "for the old one");
    const auto opening = registry->open("me", {}, latter);
    EXPECT_EQ(former.ended, 4001);
    EXPECT_EQ(opening.control, R"({"session":"new","received":0})");
    EXPECT_EQ(waiting(*opening.session), "");
    bus->deliver();
    EXPECT_THAT(programHeard, IsEmpty());
}

TEST_F(SessionRegistryTest, resumingTellsWhatWasHandledAndReplaysTheRest) {
    NotingLink link, next;
    const auto session = registry->open("me", {}, link).session;
    ASSERT_TRUE(session->take(1));
    ASSERT_TRUE(session->take(2));
    say("/dova2/web/me", "one");
    say("/dova2/web/me", "two");
    waiting(*session);
    registry->disconnected(*session, link, now);
    say("/dova2/web/me", "three");
    const auto opening = registry->open("me", 1, next);
    EXPECT_EQ(opening.control, R"({"session":"resumed","received":2})");
    EXPECT_EQ(waiting(*session), "\x1e.\x1ftwo\x1e.\x1fthree");
    EXPECT_EQ(registry->nextExpiry(), std::nullopt);
}

struct LostRow {
    const char* name;
    const char* id;
    std::uint64_t received;
};

class SessionRegistryLostTest : public RegistryFixture,
                                public testing::WithParamInterface<LostRow> {};

TEST_P(SessionRegistryLostTest, isToldPlainly) {
    NotingLink link, next;
    const auto session = registry->open("me", {}, link).session;
    say("/dova2/web/me", "one");
    say("/dova2/web/me", "two");
    waiting(*session);
    ASSERT_TRUE(session->downward().acknowledge(1));
    const auto opening = registry->open(GetParam().id, GetParam().received, next);
    EXPECT_EQ(opening.session, nullptr);
    EXPECT_THAT(opening.control, HasSubstr(R"({"session":"lost","reason":")"));
}

INSTANTIATE_TEST_SUITE_P(Rows, SessionRegistryLostTest,
                         testing::Values(LostRow{"unknownSession", "you", 0},
                                         LostRow{"gapThatIsNotKept", "me", 0},
                                         LostRow{"moreThanWasSent", "me", 3}),
                         [](const auto& row) { return row.param.name; });

TEST_F(SessionRegistryTest, aFullBufferLosesTheSessionAndTheProgramHearsIt) {
    NotingLink link;
    ready(registry->open("me", {}, link).session);
    for (int i = 0; i < 101; ++i)
        bus->publish(program, "/dova2/web/me", "x");
    bus->deliver();
    bus->deliver();
    EXPECT_EQ(link.ended, 4000);
    EXPECT_THAT(programHeard, ElementsAre(R"(/dova2/web={"clientDestroyed":"me"})"));
    EXPECT_EQ(registry->open("me", 0, link).session, nullptr);
}

TEST_F(SessionRegistryTest, theGraceTimeEndsASession) {
    NotingLink link, other;
    const auto session = registry->open("me", {}, link).session;
    ready(session);
    registry->disconnected(*session, link, now);
    EXPECT_EQ(registry->nextExpiry(), now + 30s);
    registry->endExpired(now + 30s - 1ms);
    bus->deliver();
    EXPECT_THAT(programHeard, IsEmpty());
    registry->endExpired(now + 30s);
    bus->deliver();
    EXPECT_THAT(programHeard, ElementsAre(R"(/dova2/web={"clientDestroyed":"me"})"));
    EXPECT_EQ(registry->open("me", 0, other).session, nullptr);
}

TEST_F(SessionRegistryTest, aPageThatWasNeverReadyGoesUnheard) {
    NotingLink link;
    const auto session = registry->open("me", {}, link).session;
    registry->disconnected(*session, link, now);
    registry->endExpired(now + 31s);
    bus->deliver();
    EXPECT_THAT(programHeard, IsEmpty());
    EXPECT_EQ(registry->size(), 0u);
}

TEST_F(SessionRegistryTest, aPageThatSaysGoodbyeIsGone) {
    NotingLink link;
    const auto session = registry->open("me", {}, link).session;
    ready(session);
    handle(session, "/dova2/web", R"({"clientDestroyed":"me"})");
    EXPECT_EQ(link.ended, 1000);
    EXPECT_THAT(programHeard, ElementsAre(R"(/dova2/web={"clientDestroyed":"me"})"));
    EXPECT_EQ(registry->size(), 0u);
}

TEST_F(SessionRegistryTest, waitingSessionsMakeRoomForNewOnes) {
    options.limits.connections = 3;
    registry = std::make_unique<SessionRegistry>(bus, options);
    NotingLink links[4];
    const char* const ids[] = {"a", "b", "c", "d"};
    for (int i = 0; i < 3; ++i) {
        const auto session = registry->open(ids[i], {}, links[i]).session;
        if (i > 0)
            registry->disconnected(*session, links[i], now + std::chrono::seconds(3 - i));
    }
    registry->open(ids[3], {}, links[3]);
    EXPECT_EQ(registry->size(), 3u);
    EXPECT_EQ(registry->open("c", 0, links[2]).session, nullptr) << "c has waited longest";
    EXPECT_NE(registry->open("b", 0, links[1]).session, nullptr);
}

TEST_F(SessionRegistryTest, itsEndLeavesNothingOnTheBus) {
    NotingLink link;
    registry->open("me", {}, link);
    bus->publish(program, "/dova2/web/me", "queued");
    registry.reset();
    bus->deliver();
    EXPECT_EQ(link.asked, 0);
}

}  // namespace
}  // namespace DOVA::gateway
