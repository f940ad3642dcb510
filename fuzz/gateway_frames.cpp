// What a page sends to the gateway: the input is cut into frames at zero bytes, and each goes
// through the frame codec and a session onto the bus, as a socket would hand it in. A first byte
// steers the connection: every so many frames it breaks and the session is resumed.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "FrameReceiver.h"
#include "PageLink.h"
#include "SessionRegistry.h"
#include "messaging/InProcessBus.h"

namespace {

using namespace DOVA::session;
using tdom::messaging::InProcessBus;

struct Link : PageLink {
    void textsWait() override {}
    void end(const CloseReason&) override {}
};

void require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

/// Whether a text asks for the page's own copy of the document and says nothing else.
bool asksForOwnCopy(std::string text) {
    text.erase(
        std::remove_if(
            text.begin(), text.end(),
            [](char c) { return std::string_view(" \t\r\n").find(c) != std::string_view::npos; }),
        text.end());
    const std::string_view names("\"properties\":["), client("\"snapshot\":\"me\"");
    const std::size_t list = text.find(names);
    if (list != text.npos) {
        const std::size_t end = text.find_first_of("[]{}", list + names.size());
        require(end != text.npos && text[end] == ']');
        text.erase(list, end + 1 - list);
        text.erase(text.find(','), 1);
    }
    return text == std::string("{").append(client).append("}");
}

/// A program that answers every text on the page's channels with the same text, and checks that
/// nothing else can be reached.
void attachProgram(InProcessBus& bus) {
    const auto program = bus.attach("program");
    bus.subscribeTree(program, "", [&bus, program](auto& channel, auto& text) {
        require(channel == "/dova2/web" || channel == "/tdom" || channel == "/dova2/web/me" ||
                channel.compare(0, 14, "/dova2/web/me/") == 0);
        require(channel != "/tdom" || asksForOwnCopy(text));
        if (channel == "/dova2/web") {
            require(text == "{\"clientReady\":\"me\"}" || text == "{\"clientDestroyed\":\"me\"}");
        } else {
            bus.publish(program, channel, text);
        }
    });
}

/// Everything that waits goes out, so that the page's acknowledgements have something to hit.
void sendDown(InProcessBus& bus, Session& session) {
    while (!bus.idle()) {
        bus.deliver();
    }
    while (const auto chunk = session.downward().next()) {
        require(chunk->count > 0 && !chunk->records.empty());
    }
}

/// False when the frame ends the session.
bool receive(InProcessBus& bus, SessionRegistry& registry, const std::shared_ptr<Session>& session,
             std::string_view frame) {
    FrameReceiver receiver(registry, session);
    const std::uint64_t before = session->received();
    const CloseReason* reason = receiver.begin(frame);
    while (!reason && receiver.pending() > 0) {
        Throttle throttle(3, 3);
        reason = receiver.handle(throttle, 4000, {});
    }
    require(session->received() >= before);
    sendDown(bus, *session);
    if (reason) {
        registry.end(*session, *reason);
    }
    return !session->hasEnded();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    const std::size_t framesPerConnection = data[0] % 8 + 1u;
    std::string_view input(reinterpret_cast<const char*>(data) + 1, size - 1);
    const auto bus = std::make_shared<InProcessBus>();
    attachProgram(*bus);
    SessionRegistry registry(bus, SessionOptions());
    Link link;
    std::shared_ptr<Session> session = registry.open("me", {}, link).session;
    for (std::size_t frames = 1; !input.empty(); ++frames) {
        const std::string_view frame = input.substr(0, input.find('\0'));
        input.remove_prefix(std::min(frame.size() + 1, input.size()));
        if (!receive(*bus, registry, session, frame)) {
            session = registry.open("me", {}, link).session;
        }
        if (frames % framesPerConnection != 0) {
            continue;
        }
        registry.disconnected(*session, link, SessionRegistry::Leaving::CutOff, {});
        session = registry.open("me", session->downward().nextNumber() - 1, link).session;
        require(session != nullptr);
    }
    return 0;
}
