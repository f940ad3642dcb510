#include "wiro/ReadWriteLock.h"

#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <memory>
#include <string>
#include <thread>

namespace {

using DOVA::ReadWriteLock;

/// W and w lock and unlock for writing, R and r for reading.
void perform(ReadWriteLock& lock, char step) {
    const auto act = step == 'W'   ? &ReadWriteLock::lockForWrite
                     : step == 'w' ? &ReadWriteLock::unlockForWrite
                     : step == 'R' ? &ReadWriteLock::lockForRead
                                   : &ReadWriteLock::unlockForRead;
    (lock.*act)();
}

/// Takes the lock for writing on a thread of its own; done when it got it.
std::future<void> writeElsewhere(std::shared_ptr<ReadWriteLock> lock) {
    std::packaged_task<void()> task([lock] { ReadWriteLock::WriteGuard guard(*lock); });
    std::future<void> done = task.get_future();
    std::thread(std::move(task)).detach();  // a lock that is never given back fails, not hangs
    return done;
}

class Steps : public testing::TestWithParam<const char*> {};

TEST_P(Steps, ExcludeAWriterToTheLast) {
    const std::string steps = GetParam();
    const auto lock = std::make_shared<ReadWriteLock>();
    perform(*lock, steps.front());
    std::future<void> writer = writeElsewhere(lock);
    for (std::size_t i = 1; i < steps.size(); ++i) {
        for (int turn = 0; turn < 200; ++turn) {
            std::this_thread::yield();
        }
        EXPECT_EQ(writer.wait_for(std::chrono::seconds(0)), std::future_status::timeout) << i;
        perform(*lock, steps[i]);
    }
    EXPECT_EQ(writer.wait_for(std::chrono::seconds(20)), std::future_status::ready);
}

// The last two: a writer that gave its locks back in the order in which it took them used to keep
// the lock for ever.
INSTANTIATE_TEST_SUITE_P(ReadWriteLock, Steps,
                         testing::Values("Ww", "Rr", "WRRWwrrw", "WRwr", "WWRwrw"),
                         [](const auto& row) { return std::string(row.param); });

}  // namespace
