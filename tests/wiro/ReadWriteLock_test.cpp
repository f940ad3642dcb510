#include "wiro/ReadWriteLock.h"

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <string>

#include "Threads.h"

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

// The last two: a writer that gave its locks back in the order in which it took them used to keep
// the lock for ever.
TEST(ReadWriteLock, ExcludesAWriterToTheLastUnlock) {
    for (const std::string steps : {"Ww", "Rr", "WRRWwrrw", "WRwr", "WWRwrw"}) {
        SCOPED_TRACE(steps);
        const auto lock = std::make_shared<ReadWriteLock>();
        perform(*lock, steps.front());
        const auto writer = runElsewhere([lock] { ReadWriteLock::WriteGuard guard(*lock); });
        for (std::size_t i = 1; i < steps.size(); ++i) {
            for (int turn = 0; turn < 200; ++turn) {
                std::this_thread::yield();
            }
            EXPECT_EQ(writer.wait_for(std::chrono::seconds(0)), std::future_status::timeout) << i;
            perform(*lock, steps[i]);
        }
        EXPECT_EQ(writer.wait_for(std::chrono::seconds(20)), std::future_status::ready);
    }
}

}  // namespace
