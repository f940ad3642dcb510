#include "wiro/EmitterSet.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "Threads.h"
#include "support/RowNames.h"

namespace {

struct Requests : WIRO::EmitterSet {
    Event first;
    Event second;
};

template <auto Member>
constexpr WIRO::detail::Promise s_promise{
    &WIRO::detail::PlaceInSet<Member>::emitterOf,
    [](WIRO::Listener& listener, WIRO::EmitterBase& emitter, WIRO::Thread) -> WIRO::Connection& {
        return static_cast<Receiver&>(listener).listenTo(static_cast<Event&>(emitter));
    }};

/// Two listeners for two emitters of a set; `log` says who was called.
struct Scene {
    std::unique_ptr<Requests> set = std::make_unique<Requests>();
    std::string log;
    std::unique_ptr<Receiver> a = std::make_unique<Receiver>([this](int) { log += 'a'; });
    std::unique_ptr<Receiver> b = std::make_unique<Receiver>([this](int) { log += 'b'; });

    /// A and B promise to answer both emitters, C connects to the first; 1 and 2 emit; x and y
    /// destroy a and b, * the set; # counts the connections of the first.
    void perform(char step) {
        switch (step) {
            case 'A':
            case 'B':
                return set->promise(step == 'A' ? *a : *b,
                                    {&s_promise<&Requests::first>, &s_promise<&Requests::second>});
            case 'C':
                return static_cast<void>(WIRO::connect(set->first, [this] { log += 'c'; }));
            case '1':
            case '2':
                return (step == '1' ? set->first : set->second).emit(1);
            case 'x':
                return a.reset();
            case 'y':
                return b.reset();
            case '*':
                return set.reset();
            default:
                log += std::to_string(set->first.numberOfConnections());
        }
    }
};

using DOVA::test::operator<<;  // NOLINT(misc-unused-using-decls): GoogleTest prints rows with it

struct Row {
    const char* name;
    const char* steps;
    const char* log;
};

const Row rows[] = {
    {"CountsAndAnswers", "A#1#2", "1a1a"},
    {"KeepsTheOrderOfConnection", "AC#1CA1#", "2acacca4"},
    {"ComesAfterWhatIsThere", "CA#12", "2caa"},
    {"EndsWithItsListener", "Ax#12C1", "0c"},
    {"EndsWithItsListenerOnceMade", "A1x#12", "a0"},
    {"SecondListenerIsConnectedAtOnce", "AB#1x#1y#1", "2ab1b0"},
    {"OldPromiseIsNoOtherListeners", "AxB#1#2y#1", "1b1b0"},
    {"EndsWithItsSet", "A1*x", "a"},
    {"EndsWithItsUnusedSet", "A*x", ""},
};

class Promise : public testing::TestWithParam<Row> {};

TEST_P(Promise, ReachesWhomItShould) {
    Scene scene;
    for (const char* step = GetParam().steps; *step != '\0'; ++step) {
        scene.perform(*step);
    }
    EXPECT_EQ(scene.log, GetParam().log);
}

INSTANTIATE_TEST_SUITE_P(EmitterSet, Promise, testing::ValuesIn(rows),
                         [](const auto& row) { return std::string(row.param.name); });

// Whoever comes first makes the connection; nobody else's call is lost meanwhile, and none comes
// after the listener's end.
TEST(EmitterSet, IsFirstUsedOnTwoThreadsAtOnceAndWhileItsListenerGoes) {
    for (int round = 0; round < 300; ++round) {
        Requests set;
        std::atomic<int> calls{0};
        std::atomic<int> ready{0};
        auto listener = std::make_unique<Receiver>([&](int value) { calls += value; });
        set.promise(*listener, {&s_promise<&Requests::first>, &s_promise<&Requests::second>});
        const auto emit = [&] {
            for (++ready; ready < 2;) {
                std::this_thread::yield();
            }
            set.first.emit(1);
        };
        auto other = std::async(std::launch::async, [&] {
            emit();
            set.second.emit(100);
        });
        emit();
        listener.reset();
        const int heard = calls;
        other.wait();
        EXPECT_EQ(heard, calls);
        EXPECT_TRUE(heard % 100 == 2 || heard % 100 == 1) << heard;
    }
}

}  // namespace
