#pragma once

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <vector>

/// Something that happens once and that threads wait for.
class Moment {
public:
    void happen() {
        {
            std::lock_guard guard(m_mutex);
            m_happened = true;
        }
        m_condition.notify_all();
    }
    void wait() {
        std::unique_lock guard(m_mutex);
        m_condition.wait(guard, [this] { return m_happened; });
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_condition;
    bool m_happened = false;
};

/// Gives other threads every chance to do what they must not do yet.
inline void letOthersRun() {
    for (int turn = 0; turn < 500; ++turn) {
        std::this_thread::yield();
    }
}

/// Shows the use of something after its end, even where memory is still readable.
class Life {
public:
    explicit Life(std::atomic<int>& living) : m_living(living) { ++m_living; }
    Life(const Life& other) : m_living(other.m_living) { ++m_living; }
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
