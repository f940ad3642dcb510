#include "messaging/MessageBus.h"

#include <gtest/gtest.h>

#include "messaging/InProcessBus.h"

namespace tdom::messaging {
namespace {

TEST(MessageBusTest, aReplacedBusIsDestroyedWhileTheNextOneIsInUse) {
    EXPECT_EQ(MessageBus::current(), MessageBus::current()) << "the first use installs one for all";
    const auto asker = std::shared_ptr<void>(nullptr, [](void*) { MessageBus::current(); });
    auto replaced = std::make_shared<InProcessBus>();
    replaced->subscribe(replaced->attach("asker"), "/a", [asker](auto&, auto&) {});
    MessageBus::install(std::move(replaced));
    MessageBus::install(nullptr);  // would lock up if it held the lock
    EXPECT_EQ(asker.use_count(), 1);
}

}  // namespace
}  // namespace tdom::messaging
