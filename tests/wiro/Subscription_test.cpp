#include "wiro/Subscription.h"

#include <gtest/gtest.h>

#include <memory>

#include "Receiver.h"
#include "wiro/CallableConnection.h"

namespace {

TEST(Subscription, OutlivesBothEnds) {
    auto emitter = std::make_unique<Event>();
    auto receiver = std::make_unique<Receiver>([](int) {});
    const auto listen = [&] { return WIRO::Subscription(receiver->listenTo(*emitter)); };
    WIRO::Subscription all[] = {listen(), listen(), listen(), WIRO::connect(*emitter, [] {}), {}};
    WIRO::Subscription(all[1]).disconnect();
    EXPECT_FALSE(all[1].isConnected());
    EXPECT_TRUE(all[0].isConnected() && all[2].isConnected());
    receiver.reset();
    EXPECT_FALSE(all[0].isConnected() || all[2].isConnected());
    EXPECT_EQ(emitter->numberOfConnections(), 1u);
    emitter.reset();
    for (WIRO::Subscription& each : all) {
        each.disconnect();
        EXPECT_FALSE(each.isConnected());
    }
}

// Held by the closure that it cuts, so that it dies with the closure, within its own disconnect().
TEST(Subscription, MayBelongToItsOwnCallable) {
    Event emitter;
    auto own = std::make_shared<WIRO::Subscription>();
    const std::weak_ptr<WIRO::Subscription> watch = own;
    *own = WIRO::connect(emitter, [own] {});
    const WIRO::Subscription copy = *own;
    WIRO::Subscription* const raw = own.get();
    own.reset();
    raw->disconnect();
    EXPECT_TRUE(watch.expired());
    EXPECT_FALSE(copy.isConnected());
}

}  // namespace
