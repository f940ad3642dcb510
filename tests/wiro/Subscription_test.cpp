#include "wiro/Subscription.h"

#include <gtest/gtest.h>

#include <memory>

#include "Receiver.h"
#include "wiro/CallableConnection.h"

namespace {

TEST(Subscription, OutlivesBothEnds) {
    auto emitter = std::make_unique<Event>();
    auto receiver = std::make_unique<Receiver>([](int) {});
    WIRO::Subscription first(receiver->listenTo(*emitter));
    WIRO::Subscription second(receiver->listenTo(*emitter));
    { const WIRO::Subscription copy(first); }
    WIRO::Subscription(first).disconnect();
    EXPECT_FALSE(first.isConnected());
    EXPECT_TRUE(second.isConnected());
    receiver.reset();
    EXPECT_FALSE(second.isConnected());
    EXPECT_EQ(emitter->numberOfConnections(), 0u);
    WIRO::Subscription third = WIRO::connect(*emitter, [] {});
    emitter.reset();
    WIRO::Subscription none;
    for (WIRO::Subscription* ended : {&first, &second, &third, &none}) {
        ended->disconnect();
        EXPECT_FALSE(ended->isConnected());
    }
}

// Held by the closure that it cuts, so that it dies with the closure, within its own disconnect().
TEST(Subscription, MayBelongToItsOwnCallable) {
    Event emitter;
    auto own = std::make_shared<WIRO::Subscription>();
    const std::weak_ptr<WIRO::Subscription> watch = own;
    WIRO::Subscription copy = WIRO::connect(emitter, [own] {});
    *own = copy;
    WIRO::Subscription* const raw = own.get();
    own.reset();
    raw->disconnect();
    EXPECT_TRUE(watch.expired());
    EXPECT_FALSE(copy.isConnected());
}

}  // namespace
