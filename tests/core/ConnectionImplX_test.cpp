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

template <class T, class R, class... Args, class Operation>
const WIRO::Connection& made(WIRO::Emitter<R(Args...)>& emitter, T* target, Operation operation) {
    ReadWriteLock::WriteGuard guard(WIRO::GetGlobalConnectionLock());
    return *new WIRO::ConnectionImplX<T, R, Args...>(nullptr, &emitter, target, operation,
                                                     WIRO::Thread::getCurrentThread());
}

TEST(ConnectionImplXTest, namesItsOperationAndTheDynamicTypeOfItsTarget) {
    DerivedTarget target;
    WIRO::Emitter<int(int)> whole;
    const auto& doubling = made(whole, static_cast<Target*>(&target), &Target::doubled);
    EXPECT_STREQ(doubling.objectName(), "N4DOVA4test13DerivedTargetE");
    EXPECT_EQ(doubling.signature(), "i(MN4DOVA4test6TargetEFiiE)");
    WIRO::Emitter<double(int)> part;
    const auto& halving = made(part, static_cast<const Target*>(&target), &Target::half);
    EXPECT_EQ(halving.signature(), "d(MN4DOVA4test6TargetEKFdiE)");
    WIRO::Emitter<void(unsigned)> destroy;
    const auto& destroying =
        made(destroy, static_cast<WebFactory2*>(nullptr), &WebFactory2::destroyObject);
    EXPECT_EQ(destroying.signature(), "v(MN4DOVA11WebFactory2EFvjE)");
    EXPECT_THROW(destroying.objectName(), std::bad_typeid);
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
    const auto hear = [&](const std::string& event) {
        EXPECT_EQ(event, "one");
        addresses.push_back(&event);
    };
    WIRO::connect(emitter, hear);
    WIRO::connect(emitter, hear);
    std::string event = "one";
    WIRO::sendEvent<std::string>(emitter, event);
    ASSERT_EQ(addresses.size(), 2u);
    EXPECT_EQ(addresses[0], addresses[1]);
    EXPECT_NE(addresses[0], &event);
    WIRO::PayloadX<void, WIRO::PacketDropMode::Never, std::string> payload(event);
    emitter.sendPacket(WIRO::Packet(payload), WIRO::SendMode::Ordinary, true);
    EXPECT_EQ(addresses.size(), 3u) << "for the first only";
}

}  // namespace
}  // namespace DOVA::test
