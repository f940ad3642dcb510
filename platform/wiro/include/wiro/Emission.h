#pragma once

#include <atomic>

#include "wiro/Connection.h"
#include "wiro/EmitterBase.h"
#include "wiro/Export.h"
#include "wiro/Links.h"

namespace WIRO::detail {

/// What one running emission keeps from being deleted. One connection that is pinned as sure is
/// being called; of a list, the current one.
struct Pin {
    std::atomic<Links> links{};
    std::atomic<Connection*> current{nullptr};
};

/// The pins of one thread, used like a stack. A thread's first emissions find theirs in `pins`;
/// deeper ones go through EmissionSlots.
struct ThreadPins {
    static constexpr unsigned Inline = 16;

    std::atomic<unsigned> depth{0};
    Pin pins[Inline];
};

/// The topmost pin of a thread, by the number of those before it, and what is in it.
struct Pinned {
    ThreadPins* thread;
    unsigned depth;
    Links links;
};

using LinksSource = std::atomic<Links>;

// Plain __thread with a fixed offset: the wrapper call that `thread_local` brings along would cost
// as much as the whole emission. Null in a thread that must use pinFenced().
extern DOVA_WIRO_EXPORT __thread ThreadPins* t_pins __attribute__((tls_model("initial-exec")));
extern DOVA_WIRO_EXPORT std::atomic<bool> g_garbage;

/// Pins for the first emission of a thread, and for every one where the system has no process-wide
/// barrier.
DOVA_WIRO_EXPORT Pinned pinFenced(const LinksSource& source);
DOVA_WIRO_EXPORT Pin& deepPin(ThreadPins& thread, unsigned depth);
DOVA_WIRO_EXPORT void collectGarbage();

inline void compilerFence() {
    std::atomic_signal_fence(std::memory_order_seq_cst);
}

inline Pin& pinAt(ThreadPins& thread, unsigned depth) {
    return depth < ThreadPins::Inline ? thread.pins[depth] : deepPin(thread, depth);
}

/// Keeps what an emitter is connected to. It pins what it reads with plain stores (a hazard
/// pointer); who wants to delete pays for the ordering with a process-wide memory barrier. So an
/// emission takes no lock and no atomic read-modify-write, but for the first one of a thread, for
/// the first one of an emitter with a promised connection, and for one that ends when there is
/// something to delete. See M. Michael, "Hazard Pointers", IEEE TPDS 15(6), 2004, and
/// membarrier(2). Once the constructor returns, the emitter is not touched any more: handlers may
/// destroy it.
class Emission {
public:
    explicit Emission(const EmitterBase& emitter) {
        const Links links = emitter.m_links.load(std::memory_order_relaxed);
        if (links.areNone()) {
            return;
        }
        if (__builtin_expect(links.arePromised(), false)) {
            emitter.keepPromise();
        }
        const Pinned pinned = __builtin_expect(t_pins != nullptr, true)
                                  ? pin(*t_pins, emitter.m_links, compilerFence)
                                  : pinFenced(emitter.m_links);
        m_thread = pinned.thread;
        m_depth = pinned.depth;
        m_links = pinned.links;
    }
    // Inlined where a receiver throws, too: a call there would keep the members in memory, also on
    // the way without exceptions, which that makes half as long again.
    __attribute__((always_inline)) ~Emission() {
        if (!m_thread) {
            return;
        }
        // What is pinned stays in the pin: nobody looks at pins beyond the depth.
        m_thread->depth.store(m_depth, std::memory_order_release);
        compilerFence();
        if (g_garbage.load(std::memory_order_relaxed) && m_depth == 0) {
            collectGarbage();
        }
    }
    Emission(const Emission&) = delete;
    Emission& operator=(const Emission&) = delete;

    /// Whether there is more than one connection, so that a ConnectionWalk is needed.
    bool areSeveral() const { return m_links.kind() == Links::List; }

    /// The connection if it is open, null if there is none. REQUIRES: there are not several.
    Connection* only() const {
        Connection* const one = m_links.one();
        return one && isOpen(*one) ? one : nullptr;
    }

    /// A copy, because the emission itself stays in registers only while nobody has its address.
    Pinned pinned() const { return {m_thread, m_depth, m_links}; }

    // Looked at when everybody can know that the connection is about to be called.
    static bool isOpen(const Connection& connection) {
        compilerFence();
        return connection.deliversAtOnce() || connection.deliversAfterFence();
    }

    /// Takes the next pin of the thread for what `source` holds. `fence` orders the pin before the
    /// second look at the source.
    template <class Fence>
    static Pinned pin(ThreadPins& thread, const LinksSource& source, Fence fence) {
        const unsigned depth = thread.depth.load(std::memory_order_relaxed);
        Pin& pin = pinAt(thread, depth);
        Links links;
        do {
            links = source.load(std::memory_order_acquire);
            // Released, because whoever reads a pin reads what it points to.
            pin.links.store(links, std::memory_order_release);
            // Released after the pin: whoever sees this depth does not see what the pin held
            // before.
            thread.depth.store(depth + 1, std::memory_order_release);
            fence();
        } while (links != source.load(std::memory_order_acquire));
        pin.links.store(links.markedSure(), std::memory_order_release);
        // A promise that was made a moment ago counts from the next emission on.
        return {&thread, depth, links.arePromised() ? Links() : links};
    }

private:
    ThreadPins* m_thread = nullptr;
    unsigned m_depth = 0;
    Links m_links;
};

/// A walk over the connections of an emission that has several. Ends before it.
class ConnectionWalk {
public:
    explicit ConnectionWalk(Pinned pinned)
        : m_list(*pinned.links.list()), m_pin(pinAt(*pinned.thread, pinned.depth)) {}
    ~ConnectionWalk() { m_pin.current.store(nullptr, std::memory_order_release); }
    ConnectionWalk(const ConnectionWalk&) = delete;
    ConnectionWalk& operator=(const ConnectionWalk&) = delete;

    /// The next open connection, null at the end.
    Connection* next() {
        while (m_index < m_list.size) {
            Connection* connection = m_list.entries[m_index++];
            m_pin.current.store(connection, std::memory_order_release);
            if (Emission::isOpen(*connection)) {
                return connection;
            }
        }
        return nullptr;
    }

    unsigned size() const { return m_list.size; }

private:
    const ConnectionList& m_list;
    Pin& m_pin;
    unsigned m_index = 0;
};

}  // namespace WIRO::detail
