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
/// is cut before or after one frame arrives. Whatever is cut, each side must in the end have heard
/// everything the other said, once and in order.
class SessionCutsTest : public RegistryFixture,
                        public testing::WithParamInterface<std::tuple<int, bool>> {
protected:
    void connect() {
        if (m_session)
            registry->disconnected(*m_session, m_link, Leaving::CutOff, now);
        const auto opening = registry->open(
            "me", m_session ? std::optional(m_page.heard.size()) : std::nullopt, m_link);
        ASSERT_NE(opening.session, nullptr) << opening.control;
        m_session = opening.session;
        m_page.resumed(m_session->received());
    }

    void exchange() {
        if (m_page.hasUnsent())
            sendUp();
        while (m_session->downward().hasUnsent())
            sendDown(m_session->downward().next());
    }

    void sendUp() {
        const std::string frame = m_page.frame();
        travel([&] {
            FrameReceiver receiver(*registry, m_session);
            ASSERT_EQ(receiver.begin(frame), nullptr);
            Throttle throttle{1000, 1000};
            ASSERT_EQ(receiver.handle(throttle, 1000, now), nullptr);
            bus->deliver();
        });
    }

    void sendDown(const std::shared_ptr<const Chunk>& chunk) {
        std::string frame;
        m_session->writeHeader(frame, chunk.get());
        if (chunk)
            frame += chunk->records;
        travel([&] { EXPECT_TRUE(m_page.hear(frame)) << frame; });
    }

    void travel(const std::function<void()>& arrive) {
        const auto [cutAt, arrivesBefore] = GetParam();
        const bool isCut = m_frames++ == cutAt;
        if (!isCut || arrivesBefore)
            arrive();
        if (isCut)
            connect();
    }

    int m_frames = 0;
    ModelPage m_page;
    NotingLink m_link;
    std::shared_ptr<Session> m_session;
};

TEST_P(SessionCutsTest, losesAndDoublesNothing) {
    connect();
    std::vector<std::string> up, down;
    for (const std::string step : {"1", "2", "3", "4"}) {
        m_page.act("./" + step, "a" + step);
        m_page.act(".", "b" + step);
        up.insert(up.end(), {"/dova2/web/me/" + step + "=a" + step, "/dova2/web/me=b" + step});
        exchange();
        bus->publish(program, "/dova2/web/me", "c" + step);
        bus->publish(program, "/dova2/web/me/7", "d" + step);
        down.insert(down.end(), {".\x1f"
                                 "c" +
                                     step,
                                 "./7\x1f"
                                 "d" +
                                     step});
        bus->deliver();
        exchange();
    }
    while (m_page.hasUnacknowledged() || m_session->downward().bytes() > 0) {
        exchange();
        sendDown(nullptr);  // acknowledgements, as the timers of both sides would have it
        sendUp();
    }
    EXPECT_EQ(heard, up);
    EXPECT_EQ(m_page.heard, down);
    EXPECT_GT(m_frames, std::get<0>(GetParam())) << "the cut never came";
}

INSTANTIATE_TEST_SUITE_P(EveryFrame, SessionCutsTest,
                         testing::Combine(testing::Range(0, 10), testing::Bool()));

}  // namespace
}  // namespace DOVA::gateway
