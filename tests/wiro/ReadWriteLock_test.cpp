#include "wiro/ReadWriteLock.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <future>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace {

using DOVA::ReadWriteLock;

/// W and w lock and unlock for writing, R and r for reading.
void perform(ReadWriteLock& lock, const std::string& steps) {
    for (const char step : steps) {
        switch (step) {
            case 'W':
                lock.lockForWrite();
                break;
            case 'w':
                lock.unlockForWrite();
                break;
            case 'R':
                lock.lockForRead();
                break;
            case 'r':
                lock.unlockForRead();
                break;
        }
    }
}

/// Takes the lock for writing on a thread of its own; done when it got it.
std::future<void> writeElsewhere(std::shared_ptr<ReadWriteLock> lock) {
    std::packaged_task<void()> task([lock] { perform(*lock, "Ww"); });
    std::future<void> done = task.get_future();
    std::thread(std::move(task)).detach();  // a lock that is never given back fails, not hangs
    return done;
}

class Steps : public testing::TestWithParam<const char*> {};

TEST_P(Steps, ExcludeAWriterToTheLast) {
    const std::string steps = GetParam();
    const auto lock = std::make_shared<ReadWriteLock>();
    perform(*lock, steps.substr(0, 1));
    std::future<void> writer = writeElsewhere(lock);
    for (std::size_t i = 1; i + 1 < steps.size(); ++i) {
        perform(*lock, steps.substr(i, 1));
        for (int turn = 0; turn < 200; ++turn) {
            std::this_thread::yield();
        }
        EXPECT_EQ(writer.wait_for(std::chrono::seconds(0)), std::future_status::timeout) << i;
    }
    perform(*lock, steps.substr(steps.size() - 1));
    EXPECT_EQ(writer.wait_for(std::chrono::seconds(20)), std::future_status::ready);
}

// The last two: a writer that gave its locks back in the order in which it took them used to keep
// the lock for ever.
INSTANTIATE_TEST_SUITE_P(ReadWriteLock, Steps,
                         testing::Values("Ww", "Rr", "WWww", "WRrw", "WWRrww", "WRRWwrrw", "WRwr",
                                         "WWRwrw"),
                         [](const auto& row) { return std::string(row.param); });

TEST(ReadWriteLock, WritersExcludeEverybody) {
    constexpr int rounds = 2000;
    ReadWriteLock lock;
    int first = 0;
    int second = 0;
    std::atomic<int> torn{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < 2; ++i) {
        threads.emplace_back([&] {
            for (int round = 0; round < rounds; ++round) {
                ReadWriteLock::WriteGuard guard(lock);
                ++first;
                ReadWriteLock::WriteGuard again(lock);
                ++second;
            }
        });
        threads.emplace_back([&] {
            for (int round = 0; round < rounds; ++round) {
                ReadWriteLock::ReadGuard guard(lock);
                torn += first == second ? 0 : 1;
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(torn, 0);
    EXPECT_EQ(first, 2 * rounds);
}

}  // namespace
