#include "messaging/ConnectorMessageService.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "messaging/InProcessBus.h"

namespace tdom::messaging {

TEST(ConnectorMessageServiceTest, staysOnItsBusAndTakesItsSubscriptionsAlongButNotItsTexts) {
    const auto bus = std::make_shared<InProcessBus>();
    MessageBus::install(bus);
    std::vector<std::string> heard;
    const auto record = [&](const std::string& text) { heard.push_back(text); };
    ConnectorMessageService listener("listener");
    auto leaving = std::make_unique<ConnectorMessageService>("leaving");
    MessageBus::install(std::make_shared<InProcessBus>());
    listener.subscribe("/a", record);
    listener.unsubscribe(listener.subscribe("/a", record));
    listener.publish("/a", "not for itself");
    leaving->subscribe("/b", record);
    leaving->publish("/a", "farewell");
    listener.publish("/b", "too late");
    leaving.reset();
    bus->deliver();
    EXPECT_THAT(heard, testing::ElementsAre("farewell"));
    MessageBus::install(nullptr);
}

TEST(MessageBusTest, aReplacedBusIsDestroyedWhileTheNextOneIsInUse) {
    EXPECT_EQ(MessageBus::current(), MessageBus::current()) << "the first use installs one for all";
    bool hasAsked = false;
    auto asker =
        std::shared_ptr<void>(nullptr, [&](void*) { hasAsked = MessageBus::current() != nullptr; });
    auto replaced = std::make_shared<InProcessBus>();
    replaced->subscribe(replaced->attach("asker"), "/a",
                        [asker = std::move(asker)](auto&, auto&) {});
    MessageBus::install(std::move(replaced));
    MessageBus::install(nullptr);  // would lock up if it held the lock
    EXPECT_TRUE(hasAsked);
}

}  // namespace tdom::messaging
