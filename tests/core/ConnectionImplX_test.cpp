#include "core/ConnectionImplX.h"

#include <gtest/gtest.h>

#include <string>
#include <typeinfo>
#include <vector>

#include "core/PayloadX.h"
#include "core/WebFactory2.h"
#include "wiro/CallableConnection.h"

namespace DOVA::test {

struct Target : WIRO::Listener {
    virtual ~Target() = default;
    virtual int doubled(int value) { return 2 * value; }
    double half(int value) const { return value / 2.0; }
};
struct DerivedTarget : Target {
    int doubled(int value) override { return 20 * value; }
};

namespace {

template <class T, class R, class... Args>
using Binding = WIRO::ConnectionImplX<T, R, Args...>;

template <class Made, class T, class Emitter, class Operation>
const WIRO::Connection& made(Emitter& emitter, WIRO::Listener* listener, T* target,
                             Operation operation) {
    ReadWriteLock::WriteGuard guard(WIRO::GetGlobalConnectionLock());
    return *new Made(listener, &emitter, target, operation, WIRO::Thread::getCurrentThread());
}

TEST(ConnectionImplXTest, namesTheDynamicTypeOfItsTarget) {
    DerivedTarget target;
    WIRO::Emitter<int(int)> emitter;
    const auto& binding = made<Binding<Target, int, int>>(
        emitter, &target, static_cast<Target*>(&target), &Target::doubled);
    EXPECT_STREQ(binding.objectName(), "N4DOVA4test13DerivedTargetE");
    EXPECT_EQ(binding.signature(), "i(MN4DOVA4test6TargetEFiiE)");
}

TEST(ConnectionImplXTest, signatureOfAConstOperation) {
    Target target;
    WIRO::Emitter<double(int)> emitter;
    const auto& binding = made<Binding<const Target, double, int>>(
        emitter, &target, static_cast<const Target*>(&target), &Target::half);
    EXPECT_EQ(binding.signature(), "d(MN4DOVA4test6TargetEKFdiE)");
}

TEST(ConnectionImplXTest, factorysDestroyBinding) {
    WIRO::Emitter<void(unsigned)> emitter;
    const auto& binding = made<Binding<WebFactory2, void, unsigned>>(
        emitter, nullptr, static_cast<WebFactory2*>(nullptr), &WebFactory2::destroyObject);
    EXPECT_EQ(binding.signature(), "v(MN4DOVA11WebFactory2EFvjE)");
    EXPECT_THROW(binding.objectName(), std::bad_typeid);
}

TEST(ConnectionImplXTest, callsTheOverrideAndEndsWithTheTarget) {
    WIRO::Emitter<int(int)> emitter;
    {
        DerivedTarget target;
        WIRO::bind(emitter, static_cast<Target*>(&target), &Target::doubled);
        EXPECT_EQ(emitter.emit(3), 60);
    }
    EXPECT_EQ(emitter.numberOfConnections(), 0u);
    EXPECT_EQ(emitter.emit(3), 0);
}

TEST(PayloadXTest, everyConnectionGetsTheSameCopy) {
    WIRO::Emitter<void(const std::string&)> emitter;
    std::vector<const std::string*> addresses;
    std::string heard;
    for (int i = 0; i < 2; ++i) {
        WIRO::connect(emitter, [&](const std::string& event) {
            addresses.push_back(&event);
            heard += event;
        });
    }
    std::string event = "one ";
    WIRO::sendEvent<std::string>(emitter, event);
    EXPECT_EQ(heard, "one one ");
    EXPECT_EQ(addresses[0], addresses[1]);
    EXPECT_NE(addresses[0], &event);
}

}  // namespace
}  // namespace DOVA::test
