#pragma once

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <future>
#include <thread>
#include <utility>
#include <vector>

#include "Receiver.h"
#include "wiro/CallableConnection.h"

/// Runs a task on a thread that is left behind should it hang, so that the test fails instead.
inline std::future<void> runElsewhere(std::function<void()> run) {
    std::packaged_task<void()> task(std::move(run));
    std::future<void> done = task.get_future();
    std::thread(std::move(task)).detach();
    return done;
}

/// Shows the use of something after its end, even where memory is still readable.
class Life {
public:
    explicit Life(std::atomic<int>& living) : m_living(living) { ++m_living; }
    Life(const Life& other) : Life(other.m_living) {}
    ~Life() {
        m_mark = 0;
        --m_living;
    }
    bool good() const { return m_mark == Mark; }

private:
    static constexpr unsigned Mark = 0x5EED5EED;

    std::atomic<int>& m_living;
    volatile unsigned m_mark = Mark;
};

/// Some threads emit through one emitter while this one and others connect and disconnect there.
struct Crowd {
    Event emitter;
    std::atomic<int> living{0};
    std::atomic<int> bad{0};
    std::atomic<bool> emitted{false};
    std::atomic<bool> done{false};

    void run(int emitting, int cutting) {
        std::vector<std::future<void>> emitters;
        while (emitting-- > 0) {
            emitters.push_back(std::async(std::launch::async, [this] { emitUntilDone(); }));
        }
        std::vector<std::future<void>> others;
        while (--cutting > 0) {
            others.push_back(std::async(std::launch::async, [this] { connectAndCut(); }));
        }
        while (!emitted) {
            std::this_thread::yield();
        }
        connectAndCut();
        others.clear();  // waits for them
        done = true;
        emitters.clear();
        int calls = 0;
        WIRO::connect(emitter, [&] { ++calls; });
        emitter.emit(1);
        EXPECT_EQ(calls, 1);
        EXPECT_EQ(bad, 0);
        EXPECT_EQ(living, 0);
        EXPECT_EQ(emitter.numberOfConnections(), 1u);
    }

private:
    void emitUntilDone() {
        while (!done) {
            emitter.emit(1);
            emitted = true;
        }
    }
    void connectAndCut() {
        const auto closure = [this] {
            return [this, life = Life(living)] { bad += life.good() ? 0 : 1; };
        };
        for (int round = 0; round < 3000; ++round) {
            WIRO::Subscription first = WIRO::connect(emitter, closure());
            WIRO::Subscription second = WIRO::connect(emitter, closure());
            Receiver receiver([call = closure()](int) { call(); }, emitter);
            first.disconnect();
            second.disconnect();
        }
    }
};
