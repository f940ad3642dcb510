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
    /// Added to the address of a list that may be gone already, until the emission looked again.
    static constexpr std::uintptr_t Unsure = 1;

    std::atomic<std::uintptr_t> list{0};
    std::atomic<Connection*> current{nullptr};
};

/// The pins of one thread, used like a stack. A thread's first emissions find theirs in `pins`;
/// deeper ones go through EmissionSlots.
struct ThreadPins {
    static constexpr unsigned Inline = 16;

    std::atomic<unsigned> depth{0};
    Pin pins[Inline];
};

/// A thread, its topmost pin, and the list in it.
struct Pinned {
    ThreadPins* thread;
    Pin* pin;
    const ConnectionList* list;
};

using ListSource = std::atomic<const ConnectionList*>;

// Plain __thread with a fixed offset: the wrapper call that `thread_local` brings along would cost
// as much as the whole emission. Null in a thread that must use pinFenced().
extern DOVA_WIRO_EXPORT __thread ThreadPins* t_pins __attribute__((tls_model("initial-exec")));
extern DOVA_WIRO_EXPORT std::atomic<bool> g_garbage;

/// Pins for the first emission of a thread, and for every one where the system has no process-wide
/// barrier.
DOVA_WIRO_EXPORT Pinned pinFenced(const ListSource& source);
DOVA_WIRO_EXPORT Pin& deepPin(ThreadPins& thread, unsigned depth);
DOVA_WIRO_EXPORT void collectGarbage();

/// One walk over an emitter's connections. The walk pins the list that it reads with plain stores
/// (a hazard pointer); who wants to delete pays for the ordering with a process-wide memory
/// barrier. So an emission takes no lock and no atomic read-modify-write, but for the first one of
/// a thread and for one that ends when there is something to delete. See M. Michael, "Hazard
/// Pointers", IEEE TPDS 15(6), 2004, and membarrier(2). Once the constructor returns, the emitter
/// is not touched any more: handlers may destroy it.
class Emission {
public:
    explicit Emission(const EmitterBase& emitter) {
        if (!emitter.m_list.load(std::memory_order_relaxed)) {
            return;
        }
        const Pinned pinned =
            t_pins ? pin(*t_pins, emitter.m_list, compilerFence) : pinFenced(emitter.m_list);
        m_thread = pinned.thread;
        m_pin = pinned.pin;
        m_list = pinned.list;
    }
    // Inlined where a receiver throws, too: a call there would keep the members in memory, also on
    // the way without exceptions, which that makes half as long again.
    __attribute__((always_inline)) ~Emission() {
        if (!m_pin) {
            return;
        }
        // The list stays in the pin: nobody looks at pins beyond the depth.
        m_pin->current.store(nullptr, std::memory_order_release);
        const unsigned depth = m_thread->depth.load(std::memory_order_relaxed) - 1;
        m_thread->depth.store(depth, std::memory_order_release);
        compilerFence();
        if (g_garbage.load(std::memory_order_relaxed) && depth == 0) {
            collectGarbage();
        }
    }
    Emission(const Emission&) = delete;
    Emission& operator=(const Emission&) = delete;

    /// The next open connection, null at the end. It is not deleted before the emission ends.
    Connection* next() {
        while (m_list && m_index < m_list->size) {
            Connection* connection = m_list->entries[m_index++];
            m_pin->current.store(connection, std::memory_order_release);
            compilerFence();
            if (connection->deliversAtOnce() || connection->deliversAfterFence()) {
                return connection;
            }
        }
        return nullptr;
    }

    /// Takes the next pin of the thread for the list that `source` holds. `fence` orders the pin
    /// before the second look at the source.
    template <class Fence>
    static Pinned pin(ThreadPins& thread, const ListSource& source, Fence fence) {
        const unsigned depth = thread.depth.load(std::memory_order_relaxed);
        Pin& pin = depth < ThreadPins::Inline ? thread.pins[depth] : deepPin(thread, depth);
        const ConnectionList* list = nullptr;
        std::uintptr_t address = 0;
        do {
            list = source.load(std::memory_order_acquire);
            address = reinterpret_cast<std::uintptr_t>(list);
            pin.list.store(address + Pin::Unsure, std::memory_order_relaxed);
            // Released after the pin: whoever sees this depth does not see what the pin held
            // before.
            thread.depth.store(depth + 1, std::memory_order_release);
            fence();
        } while (list != source.load(std::memory_order_acquire));
        // Released, because whoever reads a pin reads what it points to.
        pin.list.store(address, std::memory_order_release);
        return {&thread, &pin, list};
    }

private:
    static void compilerFence() { std::atomic_signal_fence(std::memory_order_seq_cst); }

    const ConnectionList* m_list = nullptr;
    unsigned m_index = 0;
    Pin* m_pin = nullptr;
    ThreadPins* m_thread = nullptr;
};

}  // namespace WIRO::detail
