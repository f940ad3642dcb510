#include "SessionRegistry.h"

#include "FrameReceiver.h"
#include "RegistryFixture.h"

namespace DOVA::session {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

class SessionRegistryTest : public RegistryFixture {
protected:
    std::shared_ptr<Session> openFresh(const char* id, PageLink& page) {
        return registry->open(id, {}, page).session;
    }

    /// A new session whose page was ready, and the program has heard that and nothing else.
    std::shared_ptr<Session> openReady(const std::string& id, PageLink& page) {
        auto session = openFresh(id.c_str(), page);
        const std::string ready = R"({"clientReady":")" + id + "\"}";
        EXPECT_EQ(registry->handle(session, {"/dova2/web", ready}), nullptr);
        EXPECT_THAT(takeHeard(), ElementsAre("/dova2/web=" + ready));
        return session;
    }

    /// The texts that wait for the page, joined as they would travel.
    static std::string waiting(Session& session) {
        std::string all;
        while (const auto chunk = session.downward().next()) {
            all += chunk->records;
        }
        return all;
    }

    /// What the program hears when the time has come to that point.
    std::vector<std::string> heardAt(SessionRegistry::Clock::time_point time) {
        registry->endExpired(time);
        return takeHeard();
    }

    NotingLink link, other, third, fourth;
    const std::string destroyed = R"(/dova2/web={"clientDestroyed":"me"})";
};

TEST_F(SessionRegistryTest, aPageHearsItsOwnChannelsAndPingsThatCanTravel) {
    const auto opening = registry->open("me", {}, link);
    EXPECT_EQ(opening.control, R"({"session":"new","received":0})");
    say("/dova2/web/me", "own");
    say("/dova2/web/me/12/x", "window");
    for (const char* const foreign : {"/dova2/web/you/12", "/dova2/web/mean"}) {
        say(foreign, "x");
    }
    for (const char* const noPing : {"", "{}", R"({"pingpong":1})", R"({"clientReady":"ping"})",
                                     R"(["ping"])", R"({"clientReady":"you"})"}) {
        say("/dova2/web", noPing);
    }
    say("/dova2/web", "{ \"ping\" : {\"a\":1} }");
    for (const char* const bad : {"a\x1e", "\xe2\x82"}) {
        say("/dova2/web/me", bad);
    }
    say("/dova2/web/me/\x1f", "bad channel");
    EXPECT_EQ(waiting(*opening.session),
              "\x1e.\x1fown\x1e./12/x\x1fwindow\x1e/dova2/web\x1f{ \"ping\" : {\"a\":1} }");
    EXPECT_EQ(link.asked, 3);
}

TEST_F(SessionRegistryTest, aReadySessionHearsTheDocumentOfAllAndItsOwn) {
    const auto ready = openReady("me", link), unready = openFresh("you", other);
    say("/tdom", "document");
    say("/tdom/me", "its own");
    for (const char* const foreign : {"/tdom/you", "/tdom/me/x"}) {
        say(foreign, "x");
    }
    EXPECT_EQ(waiting(*ready), std::string("\x1e/tdom\x1f") + "document\x1e/tdom\x1fits own");
    EXPECT_EQ(waiting(*unready), "");
}

/// So that a page can tell the answer to what was typed last from the answers to older typing.
TEST_F(SessionRegistryTest, aFrameAcknowledgesJustWhatItsTextsKnew) {
    const auto session = openFresh("me", link);
    bus->subscribeTree(program, "/dova2/web/me", [this](auto& channel, auto& text) {
        bus->publish(program, channel, "answer to " + text);
        bus->publish(program, channel, "more");
    });
    FrameReceiver receiver(*registry, session);
    ASSERT_EQ(receiver.begin("1,0\x1e./7\x1ftyped\x1e./7\x1ftyped on"), nullptr);
    Throttle throttle{100, 100};
    ASSERT_EQ(receiver.handle(throttle, 9, now), nullptr);
    bus->publish(program, "/dova2/web/me/7", "set meanwhile");
    while (bus->deliver() > 0) {
    }
    say("/dova2/web/me/7", "set later");
    for (const bool again : {false, true}) {
        std::string frames;
        while (const auto chunk = session->downward().next()) {
            std::string header;
            session->writeHeader(header, chunk.get());
            frames += header + chunk->records + "\n";
        }
        EXPECT_EQ(frames,
                  "1,0\x1e./7\x1fset meanwhile\n"
                  "2,1\x1e./7\x1f"
                  "answer to typed\x1e./7\x1fmore\n"
                  "4,2\x1e./7\x1f"
                  "answer to typed on\x1e./7\x1fmore\x1e./7\x1fset later\n");
        ASSERT_TRUE(again || session->resume(0));
    }
}

TEST_F(SessionRegistryTest, clientReadyTakesTheProgramOver) {
    openReady("first", link);
    registry->disconnected(*openFresh("second", other), other, Leaving::CutOff, now);
    openReady("third", third);  // the program replaces its page itself and hears no goodbye
    EXPECT_EQ(link.ended, 4002);
    EXPECT_EQ(third.ended, 0);
    EXPECT_EQ(registry->size(), 1u);
}

TEST_F(SessionRegistryTest, aSecondSocketTakesTheSessionOver) {
    const auto session = openReady("me", link);
    EXPECT_EQ(registry->open("me", 0, other).session, session);
    EXPECT_EQ(link.ended, 4001);
    registry->disconnected(*session, link, Leaving::CutOff, now);
    say("/dova2/web/me", "for the latter");
    EXPECT_EQ(other.asked, 1);
    EXPECT_EQ(registry->nextExpiry(), std::nullopt) << "the former's end means nothing now";
    registry->disconnected(*session, other, Leaving::CutOff, now);
    EXPECT_EQ(registry->open("me", 0, third).session, session);
    takeHeard();
    EXPECT_THAT(heardAt(now + 1h), IsEmpty()) << "it came back in time";
    EXPECT_EQ(third.ended, 0);
}

TEST_F(SessionRegistryTest, aFreshStartEndsTheOldSessionFirst) {
    openReady("me", link);
    say("/dova2/web/me", "for the old one");
    takeHeard();
    const auto opening = registry->open("me", {}, other);
    EXPECT_EQ(link.ended, 4001);
    EXPECT_EQ(opening.control, R"({"session":"new","received":0})");
    EXPECT_EQ(waiting(*opening.session), "");
    EXPECT_THAT(takeHeard(), ElementsAre(destroyed)) << "or the program would not serve it anew";
    openFresh("me", third);
    EXPECT_THAT(takeHeard(), IsEmpty()) << "the program does not know of that one";
}

/// A connection that was held up on its way, and had been given up by the page long ago.
TEST_F(SessionRegistryTest, aConnectionThatComesLateEndsNothing) {
    const auto session = registry->open("me", {}, link, 2).session;
    say("/dova2/web/me", "one");
    waiting(*session);
    ASSERT_TRUE(session->downward().acknowledge(1));
    for (const auto received : {std::optional<std::uint64_t>(0), {}}) {
        const auto late = registry->open("me", received, other, 1);
        EXPECT_EQ(late.session, nullptr);
        EXPECT_EQ(late.control, "");
        EXPECT_EQ(late.refusal->code, 4001);
    }
    EXPECT_EQ(link.ended, 0);
    EXPECT_EQ(registry->open("me", 1, third, 3).session, session);
    EXPECT_EQ(registry->open("me", 1, fourth).session, session) << "a page that does not count";
}

TEST_F(SessionRegistryTest, whatCannotBeResumedIsLost) {
    struct {
        const char *name, *id;
        std::uint64_t received;
    } const rows[] = {
        {"unknownSession", "you", 0}, {"gapThatIsNotKept", "me", 0}, {"moreThanWasSent", "me", 3}};
    for (const auto& row : rows) {
        link.ended = 0;
        const auto session = openFresh("me", link);
        say("/dova2/web/me", "one");
        say("/dova2/web/me", "two");
        waiting(*session);
        ASSERT_TRUE(session->downward().acknowledge(1));
        link.ended = 0;
        const auto opening = registry->open(row.id, row.received, other);
        EXPECT_EQ(opening.session, nullptr) << row.name;
        EXPECT_THAT(opening.control, testing::StartsWith(R"({"session":"lost","reason":")"));
        EXPECT_EQ(link.ended, 0) << row.name << ": whoever has the session keeps it";
    }
}

TEST_F(SessionRegistryTest, theGraceTimeEndsASession) {
    registry->disconnected(*openReady("me", link), link, Leaving::CutOff, now);
    registry->disconnected(*openFresh("never ready", other), other, Leaving::CutOff, now + 1s);
    EXPECT_EQ(registry->nextExpiry(), now + 30s);
    EXPECT_THAT(heardAt(now + 30s - 1ms), IsEmpty());
    EXPECT_THAT(heardAt(now + 30s), ElementsAre(destroyed));
    EXPECT_EQ(registry->open("me", 0, third).session, nullptr);
    EXPECT_EQ(registry->nextExpiry(), now + 31s);
    EXPECT_THAT(heardAt(now + 31s), IsEmpty()) << "the program does not know of that page";
    EXPECT_EQ(registry->size(), 0u);
}

TEST_F(SessionRegistryTest, aPageThatWentAwayItselfIsWaitedForAsLongAsAReloadTakes) {
    registry->disconnected(*openReady("me", link), link, Leaving::Away, now);
    ASSERT_NE(registry->open("me", 0, other).session, nullptr) << "a reload";
    EXPECT_EQ(registry->nextExpiry(), std::nullopt);
    registry->disconnected(*registry->open("me", 0, third).session, third, Leaving::Away, now);
    EXPECT_THAT(heardAt(now + 10s), ElementsAre(destroyed));
}

TEST_F(SessionRegistryTest, waitingSessionsMakeRoomForNewOnes) {
    openFresh("a", link);
    registry->disconnected(*openFresh("b", other), other, Leaving::CutOff, now + 2s);
    registry->disconnected(*openFresh("c", third), third, Leaving::CutOff, now + 1s);
    openFresh("d", fourth);
    EXPECT_EQ(registry->size(), 3u);
    EXPECT_EQ(registry->open("c", 0, third).session, nullptr) << "c has waited longest";
    EXPECT_NE(registry->open("b", 0, other).session, nullptr);
}

TEST_F(SessionRegistryTest, whatHasEndedLeavesNothingOnTheBus) {
    bus->detach(program);  // it hears everything, but for these
    const auto speaker = bus->attach("speaker");
    registry->end(*openFresh("over", third), close_reason::s_sessionEnded);
    EXPECT_EQ(third.ended, 1000);
    bus->publish(speaker, "/dova2/web/over", "too late");
    EXPECT_TRUE(bus->idle()) << "somebody hears it";
    openFresh("gone", other);
    bus->publish(speaker, "/dova2/web/gone", "queued");
    registry.reset();
    bus->deliver();
    EXPECT_EQ(other.asked, 0);
    for (const char* const channel : {"/dova2/web/gone", "/dova2/web"}) {
        bus->publish(speaker, channel, R"({"ping":1})");
    }
    EXPECT_TRUE(bus->idle()) << "somebody hears it";
}

TEST_F(SessionRegistryTest, aFrameIsWorkedOffInStepsUntilItsEndOrTheSessions) {
    const auto session = openFresh("me", link);
    FrameReceiver receiver{*registry, session};
    for (const char* const faulty : {"1,0\x1e.\x1f{}\x1e.", "2,0\x1e.\x1f{}", "1,1\x1e.\x1f{}"}) {
        EXPECT_NE(receiver.begin(faulty), nullptr) << faulty;
    }
    EXPECT_EQ(receiver.pending(), 0u) << "nothing of a faulty frame is handled";
    const std::string frame =
        "1,0\x1e.\x1fx\x1e.\x1fy\x1e/dova2/web\x1f{\"clientDestroyed\":\"me\"}\x1e.\x1ftoo late";
    ASSERT_EQ(receiver.begin(frame), nullptr);
    EXPECT_FALSE(receiver.isQuestion());
    Throttle empty{1, 1};
    empty.charge(1, now);
    EXPECT_EQ(receiver.handle(empty, 9, now), nullptr);
    EXPECT_EQ(receiver.handle(empty, 9, now + std::chrono::seconds(1)), nullptr);
    EXPECT_EQ(receiver.pending(), 3u);
    EXPECT_EQ(session->received(), 1u) << "only what was handled is acknowledged";
    Throttle enough{3, 3};
    EXPECT_EQ(receiver.handle(enough, 9, now), nullptr);
    EXPECT_THAT(takeHeard(), ElementsAre("/dova2/web/me=x", "/dova2/web/me=y", destroyed));
}

/// One text held 100,000 events, and counted as one.
TEST_F(SessionRegistryTest, aTextCountsAsWhatItMakesTheProgramDo) {
    struct {
        const char* name;
        std::string text;
        std::size_t weight;
    } const rows[] = {
        {"event", R"({"id":"1","event":"onEdit","value":"{{{"})", 1},
        {"noText", "", 1},
        {"array", R"( [{"id":"1"},{"id":"2"},{"id":"3"}])", 3},
        {"emptyArray", "[]", 1},
        {"long", std::string(5000, 'x'), 5},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(FrameCodec::weight(row.text), row.weight) << row.name;
    }
    const auto session = openFresh("me", link);
    FrameReceiver receiver{*registry, session};
    Throttle throttle{1, 4};
    const std::string frame = "1,0\x1e.\x1f[{},{},{},{}]\x1e.\x1f[{},{},{},{},{}]";
    ASSERT_EQ(receiver.begin(frame), nullptr);
    EXPECT_EQ(receiver.handle(throttle, 4, now), nullptr);
    EXPECT_EQ(receiver.pending(), 1u);
    EXPECT_EQ(receiver.handle(throttle, 4, now + std::chrono::seconds(4)),
              &close_reason::s_tooManyEvents);
    EXPECT_THAT(takeHeard(), ElementsAre("/dova2/web/me=[{},{},{},{}]"));
}

TEST_F(SessionRegistryTest, anEndedSessionKeepsNothing) {
    const auto session = openFresh("me", link);
    say("/dova2/web/me", "text");
    EXPECT_GT(session->downward().bytes(), 0u);
    registry->end(*session, close_reason::s_sessionEnded);
    EXPECT_EQ(session->downward().bytes(), 0u);
    EXPECT_FALSE(session->downward().hasUnsent());
}

}  // namespace
}  // namespace DOVA::session
