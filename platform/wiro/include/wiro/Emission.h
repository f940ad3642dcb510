#pragma once

#include <atomic>
#include <cstdint>

#include "wiro/Connection.h"
#include "wiro/EmitterBase.h"
#include "wiro/Export.h"

namespace WIRO::detail {

/// The connections of an emitter at one moment.
struct ConnectionList {
    unsigned size;
    Connection* entries[1];  // `size` of them
};

/// What one running emission keeps from being deleted.
struct Pin {
    /// Added to the address of a list that may be gone already: the emission has yet to look again.
    static constexpr std::uintptr_t Unsure = 1;

    std::atomic<std::uintptr_t> list{0};
    std::atomic<Connection*> current{nullptr};
};

/// The pins of one thread, used like a stack. A thread's first emissions find theirs in `pins`;
/// deeper ones go through EmissionSlots.
struct ThreadPins {
    static constexpr unsigned Inline = 16;

    std::atomic<unsigned> depth{0};
    bool fencesItself = false;  // where the system has no process-wide barrier
    Pin pins[Inline];
};

// Plain __thread with a fixed offset: the wrapper call that `thread_local` brings along would cost
// as much as the whole emission.
extern DOVA_PLATFORM_EXPORT __thread ThreadPins* t_pins
    __attribute__((tls_model("initial-exec")));
extern DOVA_PLATFORM_EXPORT std::atomic<bool> g_garbage;

DOVA_PLATFORM_EXPORT ThreadPins* registerThread();
DOVA_PLATFORM_EXPORT Pin& deepPin(unsigned depth);
DOVA_PLATFORM_EXPORT void collectGarbage();

/// One walk over an emitter's connections. The walk pins the list that it reads with plain stores
/// (a hazard pointer); whoever wants to delete pays for the ordering with a process-wide memory
/// barrier. So an emission takes no lock and no atomic read-modify-write. See M. Michael, "Hazard
/// Pointers", IEEE TPDS 15(6), 2004, and membarrier(2). Once the constructor returns, the emitter is
/// not touched any more: handlers may destroy it.
class Emission {
public:
    explicit Emission(const EmitterBase& emitter) {
        if (!emitter.m_list.load(std::memory_order_relaxed)) {
            return;
        }
        m_thread = t_pins ? t_pins : registerThread();
        const unsigned depth = m_thread->depth.load(std::memory_order_relaxed);
        m_pin = depth < ThreadPins::Inline ? &m_thread->pins[depth] : &deepPin(depth);
        m_thread->depth.store(depth + 1, std::memory_order_relaxed);
        pinList(emitter);
    }
    ~Emission() {
        if (!m_pin) {
            return;
        }
        m_pin->current.store(nullptr, std::memory_order_release);
        m_pin->list.store(0, std::memory_order_release);
        const unsigned depth = m_thread->depth.load(std::memory_order_relaxed) - 1;
        m_thread->depth.store(depth, std::memory_order_release);
        std::atomic_signal_fence(std::memory_order_seq_cst);
        if (g_garbage.load(std::memory_order_relaxed) && depth == 0) {
            collectGarbage();
        }
    }
    Emission(const Emission&) = delete;
    Emission& operator=(const Emission&) = delete;

    /// How many connections the emitter had when the emission began.
    unsigned size() const { return m_list ? m_list->size : 0; }

    /// The next open connection, null at the end. It is not deleted before the emission ends.
    Connection* next() {
        while (m_list && m_index < m_list->size) {
            Connection* connection = m_list->entries[m_index++];
            m_pin->current.store(connection, std::memory_order_relaxed);
            lightFence();
            if (connection->isOpen()) {
                return connection;
            }
        }
        return nullptr;
    }

private:
    void lightFence() const {
        std::atomic_signal_fence(std::memory_order_seq_cst);
        if (__builtin_expect(m_thread->fencesItself, false)) {
            std::atomic_thread_fence(std::memory_order_seq_cst);
        }
    }

    void pinList(const EmitterBase& emitter) {
        std::uintptr_t address = 0;
        do {
            m_list = emitter.m_list.load(std::memory_order_acquire);
            address = reinterpret_cast<std::uintptr_t>(m_list);
            m_pin->list.store(address + Pin::Unsure, std::memory_order_relaxed);
            lightFence();
        } while (m_list != emitter.m_list.load(std::memory_order_acquire));
        m_pin->list.store(address, std::memory_order_relaxed);
    }

    const ConnectionList* m_list = nullptr;
    unsigned m_index = 0;
    Pin* m_pin = nullptr;
    ThreadPins* m_thread = nullptr;
};

}  // namespace WIRO::detail
