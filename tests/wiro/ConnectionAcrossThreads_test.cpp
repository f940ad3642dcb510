// One end of a signal is used on one thread while another thread cuts, destroys or replaces it.

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <future>
#include <memory>
#include <string>
#include <thread>
#include <tuple>
#include <utility>
#include <vector>

#include "Receiver.h"
#include "Threads.h"
#include "wiro/CallableConnection.h"

namespace {

struct Ends {
    std::unique_ptr<Event> emitter = std::make_unique<Event>();
    std::unique_ptr<Receiver> receiver;
    WIRO::Connection* connection = nullptr;
    WIRO::Subscription subscription;
};

struct CutRow {
    const char* name;
    std::function<void(Ends&)> cut;
};

const CutRow cutRows[] = {
    {"listenerDestroyed", [](Ends& ends) { ends.receiver.reset(); }},
    {"listenerDisconnected", [](Ends& ends) { ends.receiver->disconnectAll(); }},
    {"emitterDestroyed", [](Ends& ends) { ends.emitter.reset(); }},
    {"connectionCut", [](Ends& ends) { ends.connection->disconnect(); }},
    {"subscriptionCut", [](Ends& ends) { ends.subscription.disconnect(); }},
};

class Cut : public testing::TestWithParam<std::tuple<CutRow, int>> {
protected:
    /// Emits from within `depth` - 1 other handlers.
    static void emitAtDepth(Event& emitter, int depth) {
        Event outer;
        WIRO::connect(outer, [&](int left) {
            if (left == 1) {
                emitter.emit(1);
            } else {
                outer.emit(left - 1);
            }
        });
        outer.emit(depth);
    }
};

TEST_P(Cut, WaitsForTheHandlerOnAnotherThread) {
    const auto& [row, depth] = GetParam();
    Ends ends;
    Moment running;
    std::atomic<bool> finished{false};
    WIRO::Subscription watch;
    ends.receiver = std::make_unique<Receiver>([&](int) {
        running.happen();
        while (watch.isConnected()) {
            std::this_thread::yield();
        }
        letOthersRun();
        finished = true;
    });
    ends.connection = &ends.receiver->listenTo(*ends.emitter);
    watch = ends.subscription = WIRO::Subscription(*ends.connection);

    std::thread emitting([&, depth = depth] { emitAtDepth(*ends.emitter, depth); });
    running.wait();
    row.cut(ends);
    EXPECT_TRUE(finished);
    emitting.join();
}

INSTANTIATE_TEST_SUITE_P(Connection, Cut,
                         testing::Combine(testing::ValuesIn(cutRows), testing::Values(1, 20, 100)),
                         [](const auto& row) {
                             return std::string(std::get<0>(row.param).name) + "_" +
                                    std::to_string(std::get<1>(row.param));
                         });

// The emitter goes first and forgets its connections; the listener must wait all the same.
TEST(Listener, WaitsForAHandlerWhoseConnectionIsCutAlready) {
    auto emitter = std::make_unique<Event>();
    Moment running;
    std::atomic<bool> finished{false};
    WIRO::Subscription watch;
    auto receiver = std::make_unique<Receiver>([&](int) {
        running.happen();
        while (watch.isConnected()) {
            std::this_thread::yield();
        }
        letOthersRun();
        finished = true;
    });
    watch = WIRO::Subscription(receiver->listenTo(*emitter));
    std::thread emitting([&] { emitter->emit(1); });
    running.wait();
    std::thread destroying([&] { watch.disconnect(); });
    while (watch.isConnected()) {
        std::this_thread::yield();
    }
    receiver.reset();
    EXPECT_TRUE(finished);
    destroying.join();
    emitting.join();
}

TEST(Connection, CutByItsOwnHandlerOnTwoThreadsAtOnce) {
    for (int round = 0; round < 300; ++round) {
        Event emitter;
        std::atomic<int> living{0};
        std::atomic<int> bad{0};
        WIRO::Subscription own;
        std::atomic<int> ready{0};
        own = WIRO::connect(emitter, [&, life = Life(living)] {
            own.disconnect();
            bad += life.good() ? 0 : 1;
        });
        const auto emit = [&] {
            ++ready;
            while (ready < 2) {
                std::this_thread::yield();
            }
            emitter.emit(1);
        };
        std::thread other(emit);
        emit();
        other.join();
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
        Moment running;
        WIRO::connect(emitter, [&] { running.happen(); });
        WIRO::Subscription other = WIRO::connect(emitter, [life = Life(living)] {});
        std::thread emitting([&] { emitter.emit(1); });
        running.wait();
        other.disconnect();
        emitting.join();
        ASSERT_EQ(living, 0) << round;
    }
}

/// Some threads emit through one emitter while others connect and disconnect there.
struct Crowd {
    Event emitter;
    std::atomic<int> living{0};
    std::atomic<int> bad{0};
    std::atomic<long> calls{0};
    std::atomic<bool> done{false};

    void emitUntilDone() {
        while (!done.load(std::memory_order_relaxed)) {
            emitter.emit(1);
        }
    }
    auto closure() {
        return [this, life = Life(living)] {
            bad += life.good() ? 0 : 1;
            calls.fetch_add(1, std::memory_order_relaxed);
        };
    }
    void connectAndCut(int rounds) {
        for (int round = 0; round < rounds; ++round) {
            WIRO::Subscription first = WIRO::connect(emitter, closure());
            WIRO::Subscription second = WIRO::connect(emitter, closure());
            Receiver receiver([life = Life(living), this](int) { bad += life.good() ? 0 : 1; },
                              emitter);
            first.disconnect();
            second.disconnect();
        }
    }
};

struct CrowdRow {
    const char* name;
    int emitting;
    int cutting;
};

const CrowdRow crowdRows[] = {
    // The test's own thread cuts and never emits, so that the library knows of one thread only.
    {"oneEmitsOneCuts", 1, 1},
    {"twoEmitOneCuts", 2, 1},
    {"twoEmitThreeCut", 2, 3},
};

class CrowdOf : public testing::TestWithParam<CrowdRow> {};

TEST_P(CrowdOf, ThreadsUsesNothingAfterItsEnd) {
    constexpr int rounds = 3000;
    Crowd crowd;
    std::vector<std::thread> emitting;
    for (int i = 0; i < GetParam().emitting; ++i) {
        emitting.emplace_back([&] { crowd.emitUntilDone(); });
    }
    std::vector<std::thread> cutting;
    for (int i = 1; i < GetParam().cutting; ++i) {
        cutting.emplace_back([&] { crowd.connectAndCut(rounds); });
    }
    crowd.connectAndCut(rounds);
    for (std::thread& thread : cutting) {
        thread.join();
    }
    WIRO::Subscription last = WIRO::connect(crowd.emitter, crowd.closure());
    while (crowd.calls == 0) {
        std::this_thread::yield();
    }
    crowd.done = true;
    for (std::thread& thread : emitting) {
        thread.join();
    }
    EXPECT_EQ(crowd.bad, 0);
    EXPECT_EQ(crowd.living, 1);
    EXPECT_EQ(crowd.emitter.numberOfConnections(), 1u);
}

INSTANTIATE_TEST_SUITE_P(Signal, CrowdOf, testing::ValuesIn(crowdRows),
                         [](const auto& row) { return std::string(row.param.name); });

/// Lets another thread connect while it is destroyed.
struct ConnectsElsewhereAtTheEnd {
    ConnectsElsewhereAtTheEnd() = default;
    ConnectsElsewhereAtTheEnd(ConnectsElsewhereAtTheEnd&& other) noexcept
        : m_last(std::exchange(other.m_last, false)) {}
    ~ConnectsElsewhereAtTheEnd() {
        if (m_last) {
            std::packaged_task<void()> task([] {
                Event emitter;
                WIRO::connect(emitter, [] {});
            });
            std::future<void> connected = task.get_future();
            std::thread(std::move(task)).detach();  // fails instead of hanging
            EXPECT_EQ(connected.wait_for(std::chrono::seconds(20)), std::future_status::ready);
        }
    }

private:
    bool m_last = true;
};

// What an inner emission left behind used to be destroyed by whoever connected next, under the lock
// that every other thread needs.
TEST(Closure, IsNotDestroyedUnderTheConnectionLock) {
    Event outer;
    Event inner;
    WIRO::connect(outer, [&] {
        WIRO::Subscription own;
        own = WIRO::connect(inner, [&, last = ConnectsElsewhereAtTheEnd()] { own.disconnect(); });
        inner.emit(1);
        Event other;
        WIRO::connect(other, [] {});
        WIRO::connect(other, [] {});
    });
    outer.emit(1);
    EXPECT_EQ(inner.numberOfConnections(), 0u);
}

}  // namespace
