#include "wiro/Emitter.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "Receiver.h"
#include "wiro/CallableConnection.h"

namespace {

TEST(Emitter, DeliversInTheOrderOfConnection) {
    Event emitter;
    std::string log;
    const Receiver a([&](int value) { log += "a" + std::to_string(value); }, emitter);
    WIRO::connect(emitter, [&](int value) { log += "b" + std::to_string(value); });
    const Receiver c([&](int value) { log += "c" + std::to_string(value); }, emitter);

    emitter.emit(7);
    EXPECT_EQ(log, "a7b7c7");
    EXPECT_EQ(emitter.numberOfConnections(), 3u);
}

TEST(Emitter, RequestIsAnsweredByTheFirst) {
    WIRO::Emitter<int(int)> emitter;
    std::string log;
    const auto answer = [&](int value) {
        log += std::to_string(value) + ";";
        return value;
    };
    WIRO::Subscription first = WIRO::connect(emitter, [&](int value) { return answer(value + 3); });
    WIRO::Subscription second = WIRO::connect(emitter, answer);
    EXPECT_EQ(emitter.emit(10), 13);
    first.disconnect();
    EXPECT_EQ(emitter.emit(10), 10);
    second.disconnect();
    EXPECT_EQ(emitter.emit(10), 0);
    EXPECT_EQ(log, "13;10;");
}

TEST(Emitter, EveryReceiverGetsTheWholeArgument) {
    WIRO::Emitter<void(std::vector<int>)> emitter;
    std::size_t seen = 0;
    for (int i = 0; i < 3; ++i) {
        WIRO::connect(emitter, [&](std::vector<int> values) {
            seen += values.size();
            values.clear();
        });
    }
    emitter.emit({1, 2, 3, 4});
    EXPECT_EQ(seen, 12u);
}

struct CopyThrows {
    CopyThrows() = default;
    CopyThrows(const CopyThrows&) { throw std::runtime_error("no copy"); }
    void operator()(int) const { ADD_FAILURE() << "called though it was never connected"; }
};

// A callable that could not be copied used to leave its half-made connection with the emitter.
TEST(Emitter, CopyThatThrowsLeavesNoConnection) {
    Event emitter;
    EXPECT_THROW(WIRO::connect(emitter, CopyThrows()), std::runtime_error);
    emitter.emit(1);
    EXPECT_EQ(emitter.numberOfConnections(), 0u);
}

}  // namespace
