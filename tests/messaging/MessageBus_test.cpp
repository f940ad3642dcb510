#include "messaging/MessageBus.h"

#include <gtest/gtest.h>

#include "messaging/InProcessBus.h"

namespace tdom::messaging {
namespace {

class MessageBusTest : public testing::Test {
protected:
    void TearDown() override { MessageBus::install(nullptr); }
};

TEST_F(MessageBusTest, firstUseInstallsAnInProcessBusForAll) {
    const auto bus = MessageBus::current();
    EXPECT_NE(dynamic_cast<InProcessBus*>(bus.get()), nullptr);
    EXPECT_EQ(MessageBus::current(), bus);
}

TEST_F(MessageBusTest, aChosenBusIsTheOneInUse) {
    const auto chosen = std::make_shared<InProcessBus>();
    MessageBus::install(chosen);
    EXPECT_EQ(MessageBus::current(), chosen);
}

TEST_F(MessageBusTest, aReplacedBusIsDestroyedWhileTheNextOneIsInUse) {
    const auto asker = std::shared_ptr<void>(nullptr, [](void*) { MessageBus::current(); });
    auto replaced = std::make_shared<InProcessBus>();
    replaced->subscribe(replaced->attach("asker"), "/a",
                        [asker](const std::string&, const std::string&) {});
    MessageBus::install(std::move(replaced));
    MessageBus::install(std::make_shared<InProcessBus>());  // would lock up if it held the lock
    EXPECT_EQ(asker.use_count(), 1);
}

}  // namespace
}  // namespace tdom::messaging
