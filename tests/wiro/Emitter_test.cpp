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
    EXPECT_EQ(log, "a7b7c7a8b8c8");
    EXPECT_EQ(emitter.numberOfConnections(), 3u);
}

TEST(Emitter, PacketForTheFirstStopsThere) {
    Event emitter;
    std::string log;
    WIRO::Subscription first = WIRO::connect(emitter, [&] { log += "a"; });
    WIRO::connect(emitter, [&] { log += "b"; });
    WIRO::connect(emitter, [&] { log += "c"; });

    sendPacket(emitter, 1, true);
    first.disconnect();
    sendPacket(emitter, 1, true);
    EXPECT_EQ(log, "ab");
}

struct RequestRow {
    const char* name;
    std::vector<int> answers;  // of the connections in their order
    unsigned cut;              // how many of the first ones are disconnected again
    int expected;
};

const RequestRow requestRows[] = {
    {"nobody", {}, 0, 0},
    {"one", {3}, 0, 3},
    {"theFirstAnswers", {3, 4}, 0, 3},
    {"theFirstThatIsLeft", {3, 4, 5}, 2, 5},
    {"nobodyLeft", {3, 4}, 2, 0},
};

class Request : public testing::TestWithParam<RequestRow> {};

TEST_P(Request, IsAnsweredByOne) {
    WIRO::Emitter<int(int)> emitter;
    unsigned calls = 0;
    std::vector<WIRO::Subscription> subscriptions;
    for (const int answer : GetParam().answers) {
        subscriptions.push_back(WIRO::connect(emitter, [&calls, answer](int factor) {
            ++calls;
            return answer * factor;
        }));
    }
    for (unsigned i = 0; i < GetParam().cut; ++i) {
        subscriptions[i].disconnect();
    }
    EXPECT_EQ(emitter.emit(10), GetParam().expected * 10);
    EXPECT_EQ(calls, GetParam().expected == 0 ? 0u : 1u);
}

INSTANTIATE_TEST_SUITE_P(Emitter, Request, testing::ValuesIn(requestRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(Emitter, EveryReceiverGetsTheWholeArgument) {
    WIRO::Emitter<void(std::vector<int>)> emitter;
    std::size_t seen = 0;
    for (int i = 0; i < 3; ++i) {
        WIRO::connect(emitter, [&](std::vector<int> values) { seen += values.size(); });
    }
    emitter.emit({1, 2, 3, 4});
    EXPECT_EQ(seen, 12u);
}

/// A callable whose copies can be numbered; the last allowed one is followed by an exception.
struct CopiesRunOut {
    explicit CopiesRunOut(int& copies) : left(copies) {}
    CopiesRunOut(const CopiesRunOut& other) : left(other.left) {
        if (left-- == 0) {
            throw std::runtime_error("no copy");
        }
    }
    void operator()(int) const { ADD_FAILURE() << "called though it was never connected"; }
    int& left;
};

class CopyThatThrows : public testing::TestWithParam<int> {};

// A callable that could not be copied used to leave its half-made connection with the emitter.
TEST_P(CopyThatThrows, LeavesNoConnection) {
    Event emitter;
    int calls = 0;
    WIRO::connect(emitter, [&] { ++calls; });
    int left = GetParam();
    const CopiesRunOut callable(left);
    try {
        WIRO::connect(emitter, callable).disconnect();
    } catch (const std::runtime_error&) {
    }
    emitter.emit(1);
    EXPECT_EQ(emitter.numberOfConnections(), 1u);
    EXPECT_EQ(calls, 1);
}

INSTANTIATE_TEST_SUITE_P(Emitter, CopyThatThrows, testing::Values(0, 1, 2),
                         testing::PrintToStringParamName());

TEST(Emitter, ManyConnectionsEndWithTheEmitter) {
    constexpr int count = 2000;
    auto life = std::make_shared<int>(0);
    {
        Event emitter;
        for (int i = 0; i < count; ++i) {
            WIRO::connect(emitter, [life] { ++*life; });
        }
        emitter.emit(1);
    }
    EXPECT_EQ(*life, count);
    EXPECT_EQ(life.use_count(), 1);
}

/// Uses its emitter to the last, and lives until the process ends.
struct StaticUser {
    Event emitter;
    int calls = 0;
    Receiver receiver{[this](int) { ++calls; }, emitter};
    WIRO::Subscription subscription = WIRO::connect(emitter, [this] { ++calls; });
    ~StaticUser() {
        emitter.emit(1);
        subscription.disconnect();
        emitter.emit(1);
        std::fprintf(stderr, "calls at the end: %d\n", calls);
    }
};

TEST(EmitterDeathTest, WorksWhileTheProcessEnds) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_EXIT(
        {
            static StaticUser user;
            std::exit(0);
        },
        testing::ExitedWithCode(0), "calls at the end: 3");
}

}  // namespace
