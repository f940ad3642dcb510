#include "wiro/ReadWriteLock.h"

namespace DOVA {

bool ReadWriteLock::writtenByThisThread() const {
    return m_writer.load(std::memory_order_relaxed) == std::this_thread::get_id();
}

void ReadWriteLock::lockForRead() {
    if (writtenByThisThread()) {
        ++m_depth;
    } else {
        m_mutex.lock_shared();
    }
}

void ReadWriteLock::unlockForRead() {
    // The writer may give its locks back in any order, so its last unlock may be this one.
    if (writtenByThisThread()) {
        unlockForWrite();
    } else {
        m_mutex.unlock_shared();
    }
}

void ReadWriteLock::lockForWrite() {
    if (writtenByThisThread()) {
        ++m_depth;
        return;
    }
    m_mutex.lock();
    m_writer.store(std::this_thread::get_id(), std::memory_order_relaxed);
}

void ReadWriteLock::unlockForWrite() {
    if (m_depth > 0) {
        --m_depth;
        return;
    }
    m_writer.store(std::thread::id(), std::memory_order_relaxed);
    m_mutex.unlock();
}

}  // namespace DOVA
