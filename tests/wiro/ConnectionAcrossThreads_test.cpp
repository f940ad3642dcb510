// One end of a signal is used on one thread while another thread cuts, destroys or replaces it.

#include <chrono>
#include <memory>
#include <string>

#include "Threads.h"
#include "support/RowNames.h"

namespace {

struct Ends {
    std::unique_ptr<Event> emitter = std::make_unique<Event>();
    std::unique_ptr<Receiver> receiver;
    WIRO::Connection* connection = nullptr;
    WIRO::Subscription subscription;
    std::atomic<bool> finished{false};  // the handler

    void waitUntilCut() const {
        while (subscription.isConnected()) {
            std::this_thread::yield();
        }
    }
};

using DOVA::test::operator<<;  // NOLINT(misc-unused-using-decls): GoogleTest prints rows with it

struct CutRow {
    const char* name;
    void (*cut)(Ends&);
};

const CutRow s_cutRows[] = {
    {"listenerDestroyed", [](Ends& ends) { ends.receiver.reset(); }},
    {"emitterDestroyed", [](Ends& ends) { ends.emitter.reset(); }},
    {"connectionCut", [](Ends& ends) { ends.connection->disconnect(); }},
    {"subscriptionCut", [](Ends& ends) { WIRO::Subscription(ends.subscription).disconnect(); }},
    {"listenerDestroyedAfterAnotherCut",
     [](Ends& ends) {
         const auto cutting = std::async(
             std::launch::async, [&] { WIRO::Subscription(ends.subscription).disconnect(); });
         ends.waitUntilCut();
         ends.receiver.reset();
         EXPECT_TRUE(ends.finished);
     }},
};

class Cut : public testing::TestWithParam<CutRow> {};

TEST_P(Cut, WaitsForTheHandlerOnAnotherThread) {
    for (const int depth : {1, 20, 100}) {
        SCOPED_TRACE(depth);
        Ends ends;
        std::promise<void> running;
        ends.receiver = std::make_unique<Receiver>([&](int) {
            running.set_value();
            ends.waitUntilCut();
            for (int turn = 0; turn < 500; ++turn) {
                std::this_thread::yield();
            }
            ends.finished = true;
        });
        ends.connection = &ends.receiver->listenTo(*ends.emitter);
        ends.subscription = WIRO::Subscription(*ends.connection);
        Event outer;
        WIRO::connect(outer, [&](int left) { (left == 1 ? *ends.emitter : outer).emit(left - 1); });

        const auto emitting = std::async(std::launch::async, [&] { outer.emit(depth); });
        running.get_future().wait();
        GetParam().cut(ends);
        EXPECT_TRUE(ends.finished);
    }
}

INSTANTIATE_TEST_SUITE_P(Connection, Cut, testing::ValuesIn(s_cutRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(Connection, CutByItsOwnHandlerOnTwoThreadsAtOnce) {
    for (int round = 0; round < 300; ++round) {
        Event emitter;
        std::atomic<int> living{0};
        std::atomic<int> bad{0};
        std::atomic<int> ready{0};
        WIRO::Subscription own;
        own = WIRO::connect(emitter, [&, life = Life(living)] {
            own.disconnect();
            bad += life.good() ? 0 : 1;
        });
        const auto emit = [&] {
            for (++ready; ready < 2;) {
                std::this_thread::yield();
            }
            emitter.emit(1);
        };
        auto other = std::async(std::launch::async, emit);
        emit();
        other.wait();
        EXPECT_EQ(bad, 0);
        EXPECT_EQ(living, 0);
    }
}

// The thread that cuts does not wait, because the handler that runs is another's; the closure still
// has to go when the emission has ended, whichever thread that takes.
TEST(Closure, GoesWithTheEmissionThatKeptIt) {
    for (int round = 0; round < 500; ++round) {
        Event emitter;
        std::atomic<int> living{0};
        std::promise<void> running;
        WIRO::connect(emitter, [&] { running.set_value(); });
        WIRO::Subscription other = WIRO::connect(emitter, [life = Life(living)] {});
        auto emitting = std::async(std::launch::async, [&] { emitter.emit(1); });
        running.get_future().wait();
        other.disconnect();
        emitting.wait();
        ASSERT_EQ(living, 0) << round;
    }
}

TEST(Signal, CrowdUsesNothingAfterItsEnd) {
    // This thread cuts and does not emit yet, so that the library knows of one thread only.
    Crowd().run(1, 1);
    Crowd().run(2, 3);
}

void expectThatAnotherThreadCanConnect() {
    const auto connected = runElsewhere([] {
        Event emitter;
        WIRO::connect(emitter, [] {});
    });
    EXPECT_EQ(connected.wait_for(std::chrono::seconds(20)), std::future_status::ready);
}

// What an inner emission left behind used to be destroyed by whoever connected next, under the lock
// that every other thread needs.
TEST(Closure, IsNotDestroyedUnderTheConnectionLock) {
    Event outer;
    Event inner;
    WIRO::connect(outer, [&] {
        WIRO::Subscription own;
        std::shared_ptr<void> last(nullptr, [](void*) { expectThatAnotherThreadCanConnect(); });
        own = WIRO::connect(inner, [&, last = std::move(last)] { own.disconnect(); });
        inner.emit(1);
        Event other;
        WIRO::connect(other, [] {});
        WIRO::connect(other, [] {});
    });
    outer.emit(1);
    EXPECT_EQ(inner.numberOfConnections(), 0u);
}

}  // namespace
