#include <gtest/gtest.h>

#include "PageLink.h"
#include "SessionRegistry.h"
#include "messaging/InProcessBus.h"

namespace DOVA::gateway {
namespace {

struct Link : PageLink {
    void textsWait() override {}
    void end(const CloseReason&) override {}
};

TEST(ModelChannelTest, aReadySessionHearsTheDocumentAndNothingBelowItsChannel) {
    const auto bus = std::make_shared<tdom::messaging::InProcessBus>();
    const auto program = bus->attach("program");
    SessionRegistry registry(bus, GatewayOptions());
    Link link;
    const std::shared_ptr<Session> sessions[] = {registry.open("me", {}, link).session,
                                                 registry.open("you", {}, link).session};
    sessions[0]->setReady();
    bus->publish(program, "/tdom", "document");
    bus->publish(program, "/tdom/me", "nobody's");
    bus->deliver();
    EXPECT_EQ(sessions[0]->downward().next()->records, std::string("\x1e/tdom\x1f") + "document");
    for (const auto& session : sessions) {
        EXPECT_FALSE(session->downward().next());
    }
}

}  // namespace
}  // namespace DOVA::gateway
