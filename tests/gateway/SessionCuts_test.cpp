#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "FrameReceiver.h"
#include "ModelPage.h"
#include "RegistryFixture.h"

namespace DOVA::gateway {
namespace {

/// A short session between a model page and the registry, frame by frame, in which the connection
/// is cut before or after chosen frames arrive. Whatever is cut, each side must in the end have
/// heard everything the other said, once and in order.
class SessionCutsTest : public RegistryFixture {
protected:
    /// Says whether the connection breaks at this frame, and whether the frame still arrives.
    enum class Fate { Arrives, LostWithConnection, ArrivesThenCut };
    using Fates = std::function<Fate(int frame)>;

    void runSession(const Fates& fates) {
        m_fates = fates;
        m_frames = 0;
        connect();
        for (int step = 1; step <= 4; ++step) {
            m_page.act("./" + std::to_string(step), "up" + std::to_string(step) + "a");
            m_page.act(".", "up" + std::to_string(step) + "b");
            exchange();
            bus->publish(program, "/dova2/web/me", "down" + std::to_string(step) + "a");
            bus->publish(program, "/dova2/web/me/7", "down" + std::to_string(step) + "b");
            bus->deliver();
            exchange();
        }
        exchangeUntilQuiet();
    }

    void expectEverythingOnce() {
        std::vector<std::string> up, down;
        for (int step = 1; step <= 4; ++step) {
            const std::string n = std::to_string(step);
            up.insert(up.end(),
                      {"/dova2/web/me/" + n + "=up" + n + "a", "/dova2/web/me=up" + n + "b"});
            down.insert(down.end(), {".=down" + n + "a", "./7=down" + n + "b"});
        }
        EXPECT_EQ(programHeard, up);
        EXPECT_EQ(m_page.heard(), down);
        EXPECT_FALSE(m_page.hasUnacknowledged());
        EXPECT_EQ(m_session->downward().bytes(), 0u);
    }

    int frames() const { return m_frames; }

private:
    void connect() {
        const bool isFirst = m_session == nullptr;
        if (!isFirst)
            registry->disconnected(*m_session, m_link, now);
        const auto opening =
            registry->open("me", isFirst ? std::nullopt : std::optional(m_page.received()), m_link);
        ASSERT_NE(opening.session, nullptr) << opening.control;
        m_session = opening.session;
        if (!isFirst)
            m_page.resumed(m_session->received());
    }

    void exchange() {
        if (m_page.hasUnsent())
            sendUp();
        while (m_session->downward().hasUnsent() && sendDown(m_session->downward().next())) {
        }
    }

    /// Acknowledgements included, as the timers of both sides would have it.
    void exchangeUntilQuiet() {
        while (m_page.hasUnacknowledged() || m_session->downward().bytes() > 0) {
            exchange();
            sendDown(nullptr);
            sendUp();
        }
    }

    void sendUp() {
        const std::string frame = m_page.frame();
        const Fate fate = m_fates(m_frames++);
        if (fate != Fate::LostWithConnection) {
            FrameReceiver receiver(*registry, m_session);
            ASSERT_EQ(receiver.begin(frame), nullptr);
            ASSERT_EQ(receiver.handle(1000), nullptr);
            bus->deliver();
        }
        if (fate != Fate::Arrives)
            connect();
    }

    bool sendDown(const std::shared_ptr<const Chunk>& chunk) {
        std::string frame;
        m_session->writeHeader(frame, chunk ? chunk->first : m_session->downward().nextNumber());
        if (chunk)
            frame += chunk->records;
        const Fate fate = m_fates(m_frames++);
        if (fate != Fate::LostWithConnection) {
            EXPECT_TRUE(m_page.hear(frame)) << frame;
        }
        if (fate != Fate::Arrives)
            connect();
        return fate == Fate::Arrives;
    }

    Fates m_fates;
    int m_frames = 0;
    ModelPage m_page;
    NotingLink m_link;
    std::shared_ptr<Session> m_session;
};

TEST_F(SessionCutsTest, withoutACut) {
    runSession([](int) { return Fate::Arrives; });
    expectEverythingOnce();
}

class SessionCutAtTest : public SessionCutsTest,
                         public testing::WithParamInterface<std::tuple<int, bool>> {};

TEST_P(SessionCutAtTest, losesAndDoublesNothing) {
    const auto [cutAt, arrives] = GetParam();
    const Fate fate = arrives ? Fate::ArrivesThenCut : Fate::LostWithConnection;
    runSession([=](int frame) { return frame == cutAt ? fate : Fate::Arrives; });
    expectEverythingOnce();
    EXPECT_GT(frames(), cutAt) << "the cut never came";
}

INSTANTIATE_TEST_SUITE_P(EveryFrame, SessionCutAtTest,
                         testing::Combine(testing::Range(0, 10), testing::Bool()));

TEST_F(SessionCutsTest, manyCutsAtRandom) {
    const unsigned seed = std::random_device()();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    runSession([&](int) { return static_cast<Fate>(random() % 3); });
    expectEverythingOnce();
}

}  // namespace
}  // namespace DOVA::gateway
