#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "PageLink.h"
#include "SessionRegistry.h"
#include "messaging/InProcessBus.h"

namespace DOVA::session {

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
    using Leaving = SessionRegistry::Leaving;

    RegistryFixture() {
        options.limits.downwardRecords = 100;
        options.limits.sessions = 3;
        options.graceTime = std::chrono::seconds(30);
        options.reloadTime = std::chrono::seconds(10);
        registry = std::make_unique<SessionRegistry>(bus, options);
        bus->subscribeTree(program, "", [this](auto& channel, auto& text) {
            heard.push_back(channel + "=" + text);
        });
    }

    void say(const std::string& channel, const std::string& text) {
        bus->publish(program, channel, text);
        bus->deliver();
    }

    /// What the program has heard since the last call.
    std::vector<std::string> takeHeard() {
        bus->deliver();
        return std::exchange(heard, {});
    }

    const std::shared_ptr<tdom::messaging::InProcessBus> bus =
        std::make_shared<tdom::messaging::InProcessBus>();
    const tdom::messaging::MessageBus::ConnectorId program = bus->attach("program");
    SessionOptions options;
    std::unique_ptr<SessionRegistry> registry;
    std::vector<std::string> heard;
    const SessionRegistry::Clock::time_point now{std::chrono::hours(1)};
};

}  // namespace DOVA::session
