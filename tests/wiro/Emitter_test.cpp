#include "wiro/Emitter.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
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
    sendPacket(emitter, 8);
    sendPacket(emitter, 9, true);
    EXPECT_EQ(log, "a7b7c7a8b8c8a9");
    EXPECT_EQ(emitter.numberOfConnections(), 3u);
}

TEST(Emitter, RequestIsAnsweredByTheFirst) {
    WIRO::Emitter<int(int)> emitter;
    int calls = 0;
    const auto answering = [&](int answer) {
        return WIRO::connect(emitter, [&calls, answer](int factor) {
            ++calls;
            return answer * factor;
        });
    };
    WIRO::Subscription first = answering(3);
    WIRO::Subscription second = answering(4);
    EXPECT_EQ(emitter.emit(10), 30);
    first.disconnect();
    EXPECT_EQ(emitter.emit(10), 40);
    second.disconnect();
    EXPECT_EQ(emitter.emit(10), 0);
    EXPECT_EQ(calls, 2);
}

TEST(Emitter, EveryReceiverGetsTheWholeArgument) {
    WIRO::Emitter<void(std::vector<int>)> emitter;
    std::size_t seen = 0;
    for (int i = 0; i < 3; ++i) {
        WIRO::connect(emitter, [&](std::vector<int> values) { seen += values.size(); });
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

/// Uses its emitter to the last. Made before the library's own state, so that it ends after it.
struct LastUser {
    std::unique_ptr<Event> emitter;
    int calls = 0;
    ~LastUser() {
        emitter->emit(1);
        emitter.reset();
        std::fprintf(stderr, "calls at the end: %d\n", calls);
    }
};

TEST(EmitterDeathTest, WorksWhileTheProcessEnds) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_EXIT(
        {
            static LastUser last;
            last.emitter = std::make_unique<Event>();
            WIRO::connect(*last.emitter, [&] { ++last.calls; });
            last.emitter->emit(1);
            std::exit(0);
        },
        testing::ExitedWithCode(0), "calls at the end: 2");
}

}  // namespace
