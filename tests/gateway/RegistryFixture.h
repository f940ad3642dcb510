#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "PageLink.h"
#include "SessionRegistry.h"
#include "messaging/InProcessBus.h"

namespace DOVA::gateway {

/// A link that notes what the sessions ask of it.
struct NotingLink : PageLink {
    void textsWait() override { ++asked; }
    void end(const CloseReason& reason) override { ended = reason.code; }

    int asked = 0;
    int ended = 0;
};

/// A registry on a bus, and a program on the other side of the bus that notes what it hears.
class RegistryFixture : public testing::Test {
protected:
    RegistryFixture() {
        options.limits.downwardRecords = 100;
        options.graceTime = std::chrono::seconds(30);
        registry = std::make_unique<SessionRegistry>(bus, options);
        bus->subscribeTree(program, "",
                           [this](const std::string& channel, const std::string& text) {
                               programHeard.push_back(channel + "=" + text);
                           });
    }

    void say(const std::string& channel, const std::string& text) {
        bus->publish(program, channel, text);
        bus->deliver();
    }

    void handle(const std::shared_ptr<Session>& session, const char* channel, const char* text) {
        EXPECT_EQ(registry->handle(session, {channel, text}), nullptr) << channel;
        bus->deliver();
    }

    void ready(const std::shared_ptr<Session>& session) {
        handle(session, "/dova2/web", (R"({"clientReady":")" + session->id() + "\"}").c_str());
        programHeard.clear();
    }

    /// The texts that wait for the page, joined as they would travel.
    static std::string waiting(Session& session) {
        std::string all;
        while (const auto chunk = session.downward().next())
            all += chunk->records;
        return all;
    }

    const std::shared_ptr<tdom::messaging::InProcessBus> bus =
        std::make_shared<tdom::messaging::InProcessBus>();
    const tdom::messaging::MessageBus::ConnectorId program = bus->attach("program");
    GatewayOptions options;
    std::unique_ptr<SessionRegistry> registry;
    std::vector<std::string> programHeard;
    const SessionRegistry::Clock::time_point now{std::chrono::hours(1)};
};

}  // namespace DOVA::gateway
