#include "SessionRegistry.h"

#include "RegistryFixture.h"

namespace DOVA::gateway {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class SessionRegistryTest : public RegistryFixture {
protected:
    /// The texts that wait for the page, joined as they would travel.
    static std::string waiting(Session& session) {
        std::string all;
        while (const auto chunk = session.downward().next())
            all += chunk->records;
        return all;
    }

    /// What the program hears when the time has come to that point.
    std::vector<std::string> heardAt(SessionRegistry::Clock::time_point time) {
        registry->endExpired(time);
        bus->deliver();
        return programHeard;
    }

    NotingLink link, other, third, fourth;
};

TEST_F(SessionRegistryTest, aPageHearsItsOwnChannelsAndPingsThatCanTravel) {
    const auto opening = registry->open("me", {}, link);
    EXPECT_EQ(opening.control, R"({"session":"new","received":0})");
    say("/dova2/web/me", "own");
    say("/dova2/web/me/12/x", "window");
    say("/dova2/web/you/12", "another page's");
    say("/dova2/web/mean", "a longer name");
    say("/dova2/web", R"({"ping":-1})");
    say("/dova2/web", R"({"clientReady":"you"})");
    for (const char* const bad : {"a\x1e", "\xe2\x82"})
        say("/dova2/web/me", bad);
    say("/dova2/web/me/\x1f", "bad channel");
    EXPECT_EQ(waiting(*opening.session),
              "\x1e.\x1fown\x1e./12/x\x1fwindow\x1e/dova2/web\x1f{\"ping\":-1}");
    EXPECT_EQ(link.asked, 3);
}

TEST_F(SessionRegistryTest, clientReadyTakesTheProgramOver) {
    openReady("first", link);
    registry->disconnected(*registry->open("second", {}, other).session, other, now);
    openReady("third", third);
    EXPECT_EQ(link.ended, 4002);
    EXPECT_EQ(third.ended, 0);
    EXPECT_EQ(registry->size(), 1u);
    EXPECT_THAT(heardAt(now + 1h), IsEmpty()) << "the program replaces its page itself";
}

TEST_F(SessionRegistryTest, aSecondSocketTakesTheSessionOver) {
    const auto session = registry->open("me", {}, link).session;
    EXPECT_EQ(registry->open("me", 0, other).session, session);
    EXPECT_EQ(link.ended, 4001);
    registry->disconnected(*session, link, now);
    say("/dova2/web/me", "for the latter");
    EXPECT_EQ(other.asked, 1);
    EXPECT_EQ(registry->nextExpiry(), std::nullopt) << "the former's end means nothing now";
}

TEST_F(SessionRegistryTest, aFreshStartDropsTheOldSessionSilently) {
    openReady("me", link);
    say("/dova2/web/me", "for the old one");
    const auto opening = registry->open("me", {}, other);
    EXPECT_EQ(link.ended, 4001);
    EXPECT_EQ(opening.control, R"({"session":"new","received":0})");
    EXPECT_EQ(waiting(*opening.session), "");
    EXPECT_THAT(heardAt(now), IsEmpty());
}

TEST_F(SessionRegistryTest, whatCannotBeResumedIsLost) {
    struct {
        const char *name, *id;
        std::uint64_t received;
    } const rows[] = {
        {"unknownSession", "you", 0}, {"gapThatIsNotKept", "me", 0}, {"moreThanWasSent", "me", 3}};
    for (const auto& row : rows) {
        const auto session = registry->open("me", {}, link).session;
        say("/dova2/web/me", "one");
        say("/dova2/web/me", "two");
        waiting(*session);
        ASSERT_TRUE(session->downward().acknowledge(1));
        const auto opening = registry->open(row.id, row.received, other);
        EXPECT_EQ(opening.session, nullptr) << row.name;
        EXPECT_THAT(opening.control, HasSubstr(R"({"session":"lost","reason":")"));
    }
}

TEST_F(SessionRegistryTest, theGraceTimeEndsASession) {
    registry->disconnected(*openReady("me", link), link, now);
    EXPECT_EQ(registry->nextExpiry(), now + 30s);
    EXPECT_THAT(heardAt(now + 30s - 1ms), IsEmpty());
    EXPECT_THAT(heardAt(now + 30s), ElementsAre(R"(/dova2/web={"clientDestroyed":"me"})"));
    EXPECT_EQ(registry->open("me", 0, other).session, nullptr);
}

TEST_F(SessionRegistryTest, aPageThatWasNeverReadyGoesUnheard) {
    registry->disconnected(*registry->open("me", {}, link).session, link, now);
    EXPECT_THAT(heardAt(now + 31s), IsEmpty());
    EXPECT_EQ(registry->size(), 0u);
}

TEST_F(SessionRegistryTest, waitingSessionsMakeRoomForNewOnes) {
    registry->open("a", {}, link);
    registry->disconnected(*registry->open("b", {}, other).session, other, now + 2s);
    registry->disconnected(*registry->open("c", {}, third).session, third, now + 1s);
    registry->open("d", {}, fourth);
    EXPECT_EQ(registry->size(), 3u);
    EXPECT_EQ(registry->open("c", 0, third).session, nullptr) << "c has waited longest";
    EXPECT_NE(registry->open("b", 0, other).session, nullptr);
}

TEST_F(SessionRegistryTest, itsEndLeavesNothingOnTheBus) {
    registry->open("me", {}, link);
    bus->publish(program, "/dova2/web/me", "queued");
    registry.reset();
    bus->deliver();
    EXPECT_EQ(link.asked, 0);
}

}  // namespace
}  // namespace DOVA::gateway
