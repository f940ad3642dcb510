#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "FrameReceiver.h"
#include "RegistryFixture.h"

namespace DOVA::gateway {
namespace {

/// The page's side of the protocol, written independently of the gateway's: numbers its actions,
/// keeps them, and notes what it hears.
class ModelPage {
public:
    /// What the page does; it travels with the next frame.
    void act(const std::string& channel, const std::string& text) {
        m_actions.push_back('\x1e' + channel + '\x1f' + text);
    }

    /// Everything that is not yet sent on this connection, in one frame.
    std::string frame() {
        std::string frame = std::to_string(m_sent + 1) + "," + std::to_string(heard.size());
        for (; hasUnsent(); ++m_sent)
            frame += m_actions[m_sent];
        return frame;
    }

    bool hasUnsent() const { return m_sent < m_actions.size(); }
    bool hasUnacknowledged() const { return m_acknowledged < m_actions.size(); }

    /// A data frame from the gateway. Returns false when it breaks the numbering.
    bool hear(const std::string& frame) {
        std::uint64_t number = std::stoull(frame);
        const std::uint64_t acknowledged = std::stoull(frame.substr(frame.find(',') + 1));
        bool inOrder = acknowledged >= m_acknowledged && acknowledged <= m_sent;
        m_acknowledged = acknowledged;
        for (auto at = frame.find('\x1e'); at != frame.npos; ++number) {
            const auto end = frame.find('\x1e', at + 1);
            if (number == heard.size() + 1)
                heard.push_back(frame.substr(at + 1, end == frame.npos ? end : end - at - 1));
            inOrder = inOrder && number <= heard.size();
            at = end;
        }
        return inOrder;
    }

    /// The gateway has resumed: it handled everything up to `handled`. The rest goes again.
    void resumed(std::uint64_t handled) { m_acknowledged = m_sent = handled; }

    /// What was heard, each once.
    std::vector<std::string> heard;

private:
    std::vector<std::string> m_actions;
    std::uint64_t m_sent = 0;
    std::uint64_t m_acknowledged = 0;
};

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
