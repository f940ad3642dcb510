#include <functional>
#include <optional>
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
        connect();
        std::vector<std::string> up, down;
        for (const std::string step : {"1", "2", "3", "4"}) {
            m_page.act("./" + step, "a" + step);
            m_page.act(".", "b" + step);
            up.insert(up.end(), {"/dova2/web/me/" + step + "=a" + step, "/dova2/web/me=b" + step});
            exchange();
            bus->publish(program, "/dova2/web/me", "c" + step);
            bus->publish(program, "/dova2/web/me/7", "d" + step);
            down.insert(down.end(), {".=c" + step, "./7=d" + step});
            bus->deliver();
            exchange();
        }
        exchangeUntilQuiet();
        EXPECT_EQ(programHeard, up);
        EXPECT_EQ(m_page.heard(), down);
    }

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
        EXPECT_TRUE(fate == Fate::LostWithConnection || m_page.hear(frame)) << frame;
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

class SessionCutAtTest : public SessionCutsTest,
                         public testing::WithParamInterface<std::tuple<int, bool>> {};

TEST_P(SessionCutAtTest, losesAndDoublesNothing) {
    const auto [cutAt, arrives] = GetParam();
    const Fate fate = arrives ? Fate::ArrivesThenCut : Fate::LostWithConnection;
    runSession([=](int frame) { return frame == cutAt ? fate : Fate::Arrives; });
    EXPECT_GT(m_frames, cutAt) << "the cut never came";
}

INSTANTIATE_TEST_SUITE_P(EveryFrame, SessionCutAtTest,
                         testing::Combine(testing::Range(0, 10), testing::Bool()));

}  // namespace
}  // namespace DOVA::gateway
