#include "wiro/Subscription.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

#include "Receiver.h"
#include "wiro/CallableConnection.h"

namespace {

struct Ends {
    std::unique_ptr<Event> emitter = std::make_unique<Event>();
    std::unique_ptr<Receiver> receiver;
    WIRO::Subscription subscription;
    int calls = 0;
};

struct Row {
    const char* name;
    std::function<void(Ends&)> act;
    bool connected;  // afterwards
};

const Row rows[] = {
    {"untouched", [](Ends&) {}, true},
    {"copyLetGo", [](Ends& ends) { WIRO::Subscription copy(ends.subscription); }, true},
    {"disconnected", [](Ends& ends) { ends.subscription.disconnect(); }, false},
    {"copyDisconnected", [](Ends& ends) { WIRO::Subscription(ends.subscription).disconnect(); },
     false},
    {"emitterGone", [](Ends& ends) { ends.emitter.reset(); }, false},
    {"listenerGone", [](Ends& ends) { ends.receiver.reset(); }, false},
    {"bothGone",
     [](Ends& ends) {
         ends.receiver.reset();
         ends.emitter.reset();
     },
     false},
    {"listenerDisconnected", [](Ends& ends) { ends.receiver->disconnectAll(); }, false},
};

class SubscriptionTo : public testing::TestWithParam<Row> {};

TEST_P(SubscriptionTo, KnowsWhatBecameOfItsConnection) {
    Ends ends;
    ends.receiver = std::make_unique<Receiver>([&](int) { ++ends.calls; });
    ends.subscription = WIRO::Subscription(ends.receiver->listenTo(*ends.emitter));

    GetParam().act(ends);
    EXPECT_EQ(ends.subscription.isConnected(), GetParam().connected);
    if (ends.emitter) {
        ends.emitter->emit(1);
    }
    EXPECT_EQ(ends.calls, GetParam().connected ? 1 : 0);

    ends.subscription.disconnect();
    EXPECT_FALSE(ends.subscription.isConnected());
}

INSTANTIATE_TEST_SUITE_P(Subscription, SubscriptionTo, testing::ValuesIn(rows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(Subscription, ToNothingIsHarmless) {
    WIRO::Subscription none;
    none.disconnect();
    EXPECT_FALSE(none.isConnected());
}

TEST(Subscription, CutsOnlyItsOwnConnection) {
    Event emitter;
    std::string log;
    Receiver receiver([&](int) { log += "r"; });
    WIRO::Subscription first(receiver.listenTo(emitter));
    WIRO::Subscription second(receiver.listenTo(emitter));
    first.disconnect();
    EXPECT_TRUE(second.isConnected());
    emitter.emit(1);
    EXPECT_EQ(log, "r");
}

// Held by the closure that it cuts, so that it dies with the closure, within its own disconnect().
TEST(Subscription, MayBelongToItsOwnCallable) {
    Event emitter;
    auto own = std::make_shared<WIRO::Subscription>();
    const std::weak_ptr<WIRO::Subscription> watch = own;
    WIRO::Subscription copy = WIRO::connect(emitter, [own] {});
    *own = copy;
    own.reset();
    watch.lock()->disconnect();
    EXPECT_TRUE(watch.expired());
    EXPECT_FALSE(copy.isConnected());
}

}  // namespace
