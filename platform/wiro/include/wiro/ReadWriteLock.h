#pragma once

#include <atomic>
#include <shared_mutex>
#include <thread>

#include "wiro/Export.h"

namespace DOVA {

/// Many readers or one writer, on any thread. The writer may lock again, for writing or reading, as
/// often as it likes, and unlock in any order: so code under the lock can call operations that take
/// it themselves. A reader must not lock again: when a writer waits in between, neither goes on.
class DOVA_WIRO_EXPORT ReadWriteLock {
public:
    ReadWriteLock() = default;
    ReadWriteLock(const ReadWriteLock&) = delete;
    ReadWriteLock& operator=(const ReadWriteLock&) = delete;

    void lockForRead();
    void unlockForRead();
    void lockForWrite();
    void unlockForWrite();

    /// Holds the lock for reading while it lives.
    class ReadGuard {
    public:
        explicit ReadGuard(ReadWriteLock& lock) : m_lock(lock) { m_lock.lockForRead(); }
        ~ReadGuard() { m_lock.unlockForRead(); }
        ReadGuard(const ReadGuard&) = delete;
        ReadGuard& operator=(const ReadGuard&) = delete;

    private:
        ReadWriteLock& m_lock;
    };

    /// Holds the lock for writing while it lives.
    class WriteGuard {
    public:
        explicit WriteGuard(ReadWriteLock& lock) : m_lock(lock) { m_lock.lockForWrite(); }
        ~WriteGuard() { m_lock.unlockForWrite(); }
        WriteGuard(const WriteGuard&) = delete;
        WriteGuard& operator=(const WriteGuard&) = delete;

    private:
        ReadWriteLock& m_lock;
    };

private:
    bool writtenByThisThread() const;

    std::shared_mutex m_mutex;
    std::atomic<std::thread::id> m_writer{};
    unsigned m_depth = 0;  // locks that the writer holds beyond its first
};

}  // namespace DOVA
