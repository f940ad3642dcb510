// A page's session over cuts. Each byte of the input is a step of the page, of the program, of the
// network or of time; in the end, whatever was cut, each side must have heard everything that the
// other one said, once and in order, unless the session was given up, which both must know.

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "FrameReceiver.h"
#include "ModelPage.h"
#include "PageLink.h"
#include "SessionRegistry.h"
#include "messaging/InProcessBus.h"

namespace {

using namespace DOVA::session;
using tdom::messaging::InProcessBus;

void require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

struct Link : PageLink {
    void textsWait() override {}
    void end(const CloseReason&) override {}
};

SessionOptions smallOptions() {
    SessionOptions options;
    options.limits.downwardRecords = 40;
    options.limits.joinedFrameBytes = 24;
    options.graceTime = std::chrono::seconds(20);
    return options;
}

/// A page, a program, and the network between the page and the gateway.
class Conversation {
public:
    Conversation() {
        m_bus->subscribeTree(m_program, "/dova2/web/me", [this](auto& channel, auto& text) {
            m_heard.push_back(channel.substr(10) + "=" + text);
        });
        connect();
    }

    void step(std::uint8_t what) {
        const unsigned amount = what / 8u;
        switch (what % 8) {
            case 0:
                act(amount);
                break;
            case 1:
                publish(amount);
                break;
            case 2:
                sendUp(true);
                break;
            case 3:
                sendUp(amount % 2 == 0);
                cut();
                break;
            case 4:
                sendDown(true);
                break;
            case 5:
                sendDown(amount % 2 == 0);
                cut();
                break;
            case 6:
                m_now += std::chrono::seconds(amount);
                m_registry.endExpired(m_now);
                break;
            default:
                connect();
        }
    }

    void finish() {
        connect();
        while (m_page.hasUnacknowledged() || m_session->downward().bytes() > 0) {
            sendUp(true);
            sendDown(true);
            acknowledge();
        }
        require(m_heard == m_said);
        require(m_page.heard == m_published);
    }

private:
    void act(unsigned amount) {
        const std::string text = std::to_string(m_said.size());
        m_page.act(amount % 2 == 0 ? "." : "./7", text);
        m_said.push_back((amount % 2 == 0 ? "/me=" : "/me/7=") + text);
    }

    void publish(unsigned amount) {
        for (unsigned count = 0; count <= amount; ++count) {
            const std::string text = std::to_string(m_published.size());
            m_bus->publish(m_program, "/dova2/web/me", text);
            m_published.push_back(".\x1f" + text);
        }
        deliver();
    }

    void deliver() {
        while (!m_bus->idle()) {
            m_bus->deliver();
        }
    }

    void sendUp(bool arrives) {
        const std::string frame = m_page.frame();
        if (m_isCut || m_session->hasEnded() || !arrives) {
            return;
        }
        FrameReceiver receiver(m_registry, m_session);
        require(receiver.begin(frame) == nullptr);
        Throttle throttle(100000, 100000);
        require(receiver.handle(throttle, 4000, m_now) == nullptr);
        require(receiver.pending() == 0);
        deliver();
    }

    void sendDown(bool arrives) {
        if (m_isCut || m_session->hasEnded()) {
            return;
        }
        if (const auto chunk = m_session->downward().next()) {
            std::string frame;
            m_session->writeHeader(frame, chunk.get());
            require(!arrives || m_page.hear(frame + chunk->records));
        }
    }

    /// As the timers of both sides would have it.
    void acknowledge() {
        std::string frame;
        m_session->writeHeader(frame, nullptr);
        require(m_page.hear(frame));
        sendUp(true);
    }

    void cut() {
        m_registry.disconnected(*m_session, m_link, SessionRegistry::Leaving::CutOff, m_now);
        m_isCut = true;
    }

    void connect() {
        cut();
        auto opening = m_registry.open("me", std::optional(m_page.heard.size()), m_link);
        if (!opening.session) {
            startAfresh();
            opening = m_registry.open("me", {}, m_link);
        }
        m_session = opening.session;
        m_isCut = false;
        m_page.resumed(m_session->received());
    }

    /// Only what was given up may be missing: the time was over, or the page was too far behind.
    void startAfresh() {
        require(m_session->hasEnded());
        require(m_session->downward().bytes() == 0);
        m_page = ModelPage();
        m_heard.clear();
        m_said.clear();
        m_published.clear();
    }

    const std::shared_ptr<InProcessBus> m_bus = std::make_shared<InProcessBus>();
    const tdom::messaging::MessageBus::ConnectorId m_program = m_bus->attach("program");
    SessionRegistry m_registry{m_bus, smallOptions()};
    Link m_link;
    std::shared_ptr<Session> m_session = m_registry.open("me", {}, m_link).session;
    ModelPage m_page;
    bool m_isCut = false;
    SessionRegistry::Clock::time_point m_now{std::chrono::hours(1)};
    std::vector<std::string> m_heard, m_said, m_published;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Conversation conversation;
    for (std::size_t index = 0; index < size; ++index) {
        conversation.step(data[index]);
    }
    conversation.finish();
    return 0;
}
