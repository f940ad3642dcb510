#include "EmissionSlots.h"

#include <linux/membarrier.h>
#include <pthread.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <mutex>
#include <new>
#include <thread>

namespace WIRO::detail {

__thread ThreadPins* t_pins = nullptr;
std::atomic<bool> g_garbage{false};

namespace {

struct ThreadRecord;

/// This thread's own record, null before its first emission.
__thread ThreadRecord* t_record = nullptr;

struct PinChunk {
    static constexpr unsigned Size = 64;
    Pin pins[Size];
    std::atomic<PinChunk*> more{nullptr};
};

/// The pins of a thread in the list of all threads. Records are never freed, a thread that ends
/// leaves its record to the next one.
struct ThreadRecord : ThreadPins {
    std::atomic<PinChunk*> more{nullptr};
    bool inUse = true;
};

/// All threads that ever emitted, and what waits to be deleted. Never destroyed, because emitters
/// with static lifetime emit and die while the process ends.
struct Registry {
    std::mutex mutex;
    std::vector<ThreadRecord*> threads;
    Retired garbage;
    unsigned arriving = 0;  // calls that are about to add to the garbage
    std::atomic<unsigned> threadCount{0};
    const bool hasBarrier =
        ::syscall(SYS_membarrier, MEMBARRIER_CMD_REGISTER_PRIVATE_EXPEDITED, 0, 0) == 0;

    void updateGarbageFlag() {
        g_garbage.store(arriving > 0 || !garbage.empty(), std::memory_order_relaxed);
    }
};

Registry& registry() {
    static auto* instance = new Registry;
    return *instance;
}

void endThread(void* record) {
    std::lock_guard guard(registry().mutex);
    static_cast<ThreadRecord*>(record)->inUse = false;
    t_record = nullptr;
    t_pins = nullptr;
}

/// Has endThread called when this thread ends. By a key and not by a thread_local object, because
/// such objects emit while they are destroyed: a key's destructor comes after all of them, and once
/// more if the thread registered again meanwhile.
void callAtThreadEnd(ThreadRecord* record) {
    static const pthread_key_t key = [] {
        pthread_key_t made = 0;
        if (::pthread_key_create(&made, endThread) != 0) {
            throw std::bad_alloc();
        }
        return made;
    }();
    ::pthread_setspecific(key, record);
}

/// True if a thread other than this one ever emitted.
bool othersEmit() {
    const unsigned self = t_record ? 1 : 0;
    return registry().threadCount.load(std::memory_order_seq_cst) > self;
}

/// Orders this thread's earlier stores before its later loads as seen by every other thread, which
/// for its part only keeps the compiler from reordering.
void heavyFence() {
    fence();
    if (othersEmit() && registry().hasBarrier) {
        ::syscall(SYS_membarrier, MEMBARRIER_CMD_PRIVATE_EXPEDITED, 0, 0);
    }
}

/// Calls `visit` with every pin in use of a thread until it answers true.
template <class Visit>
bool anyPin(const ThreadRecord& thread, Visit visit) {
    const unsigned depth = thread.depth.load(std::memory_order_acquire);
    for (unsigned i = 0; i < std::min(depth, ThreadPins::Inline); ++i) {
        if (visit(thread.pins[i])) {
            return true;
        }
    }
    unsigned left = depth > ThreadPins::Inline ? depth - ThreadPins::Inline : 0;
    for (PinChunk* chunk = thread.more.load(std::memory_order_acquire); chunk && left > 0;
         chunk = chunk->more.load(std::memory_order_acquire)) {
        const unsigned here = std::min(left, PinChunk::Size);
        left -= here;
        if (std::any_of(chunk->pins, chunk->pins + here, visit)) {
            return true;
        }
    }
    return false;
}

template <class Visit>
bool anyPinOfAll(const Registry& all, Visit visit) {
    return std::any_of(all.threads.begin(), all.threads.end(),
                       [&](const ThreadRecord* thread) { return anyPin(*thread, visit); });
}

bool isPinned(const Registry& all, const ConnectionList* list) {
    return anyPinOfAll(all, [links = Links(list)](const Pin& pin) {
        return pin.links.load(std::memory_order_acquire).unmarked() == links;
    });
}

bool isPinned(const Registry& all, Connection* connection) {
    return anyPinOfAll(all, [=](const Pin& pin) {
        const Links links = pin.links.load(std::memory_order_acquire);
        if (links.kind() != Links::List) {
            return links.unmarked() == Links(connection);
        }
        if (!links.areSure()) {
            return true;  // which connections it will keep cannot be read from a list long gone
        }
        // Lists are deleted under the registry's mutex only, so a pinned one can be read here.
        const ConnectionList& list = *links.unmarked().list();
        return std::find(list.entries, list.entries + list.size, connection) !=
               list.entries + list.size;
    });
}

/// The connection whose handler runs, or is about to run; null for none.
const Connection* runningIn(const Pin& pin) {
    const Links links = pin.links.load(std::memory_order_acquire);
    if (links.kind() == Links::List) {
        return pin.current.load(std::memory_order_acquire);
    }
    return links.areSure() && !links.arePromised() ? links.unmarked().one() : nullptr;
}

/// Takes what no emission uses any more out of `all`.
template <class T>
std::vector<T> takeUnused(const Registry& registry, std::vector<T>& all) {
    auto used =
        std::partition(all.begin(), all.end(), [&](T entry) { return isPinned(registry, entry); });
    std::vector<T> unused(used, all.end());
    all.erase(used, all.end());
    return unused;
}

/// True if another thread is in a handler of a connection that `matches`.
template <class Matches>
bool runsElsewhere(Matches matches) {
    Registry& all = registry();
    std::lock_guard guard(all.mutex);
    return std::any_of(all.threads.begin(), all.threads.end(), [&](const ThreadRecord* thread) {
        return thread != t_record && anyPin(*thread, [&](const Pin& pin) {
                   const Connection* running = runningIn(pin);
                   return running && matches(running);
               });
    });
}

template <class Matches>
void waitUntilNotRunning(Matches matches) {
    heavyFence();
    while (othersEmit() && runsElsewhere(matches)) {
        std::this_thread::yield();
    }
}

void freeUnusedLists(Registry& all) {
    for (const ConnectionList* list : takeUnused(all, all.garbage.lists)) {
        std::free(const_cast<ConnectionList*>(list));
    }
}

/// Adds to the garbage. An emission that ends from now on either is seen to have ended by whoever
/// looks at the garbage afterwards, or sees the flag and looks itself. (Without a process-wide
/// barrier it may miss the flag; then a later emission or call of retire() finds what it left.)
void addGarbage(const Retired& retired) {
    Registry& all = registry();
    {
        std::lock_guard guard(all.mutex);
        ++all.arriving;
        all.updateGarbageFlag();
    }
    heavyFence();
    std::lock_guard guard(all.mutex);
    Retired& garbage = all.garbage;
    garbage.lists.insert(garbage.lists.end(), retired.lists.begin(), retired.lists.end());
    garbage.connections.insert(garbage.connections.end(), retired.connections.begin(),
                               retired.connections.end());
    --all.arriving;
}

/// Gives this thread a record, one that another thread left if there is any.
void registerThread() {
    Registry& all = registry();
    std::lock_guard guard(all.mutex);
    auto free = std::find_if(all.threads.begin(), all.threads.end(),
                             [](const ThreadRecord* record) { return !record->inUse; });
    if (free == all.threads.end()) {
        free = all.threads.insert(free, new ThreadRecord);
        all.threadCount.fetch_add(1, std::memory_order_seq_cst);
    }
    callAtThreadEnd(*free);
    (*free)->inUse = true;
    t_record = *free;
    t_pins = all.hasBarrier ? *free : nullptr;
}

}  // namespace

bool hasBarrier() {
    return registry().hasBarrier;
}

void fence() {
    // As good as a fence instruction, and unlike it the thread sanitizer understands it.
    static std::atomic<unsigned> nothing{0};
    nothing.fetch_add(0, std::memory_order_seq_cst);
}

Pinned pinFenced(const LinksSource& source) {
    if (!t_record) {
        registerThread();
    }
    return Emission::pin(*t_record, source, fence);
}

Pin& deepPin(ThreadPins& thread, unsigned depth) {
    std::atomic<PinChunk*>* slot = &static_cast<ThreadRecord&>(thread).more;
    for (depth -= ThreadPins::Inline;; depth -= PinChunk::Size) {
        PinChunk* chunk = slot->load(std::memory_order_relaxed);
        if (!chunk) {
            chunk = new PinChunk;
            slot->store(chunk, std::memory_order_release);
        }
        if (depth < PinChunk::Size) {
            return chunk->pins[depth];
        }
        slot = &chunk->more;
    }
}

void collectGarbage() {
    Registry& all = registry();
    std::vector<Connection*> connections;
    {
        std::lock_guard guard(all.mutex);
        connections = takeUnused(all, all.garbage.connections);
        // Within the mutex, so that nobody who reads a pinned list finds it deleted.
        freeUnusedLists(all);
        all.updateGarbageFlag();
    }
    // Outside of it, because a closure may connect and disconnect while it is destroyed.
    for (Connection* connection : connections) {
        delete connection;
    }
}

ConnectionList* allocateList(unsigned size) {
    void* memory =
        std::malloc(sizeof(ConnectionList) + (size - 1) * sizeof(ConnectionList::entries));
    if (!memory) {
        throw std::bad_alloc();
    }
    auto* list = static_cast<ConnectionList*>(memory);
    list->size = size;
    return list;
}

void retire(const Retired& retired) {
    if (retired.empty()) {
        return;
    }
    addGarbage(retired);
    collectGarbage();
}

void retireLists(const Retired& retired) {
    if (retired.empty()) {
        return;
    }
    addGarbage(retired);
    Registry& all = registry();
    std::lock_guard guard(all.mutex);
    freeUnusedLists(all);
    all.updateGarbageFlag();
}

void waitForHandlers(const std::vector<Connection*>& connections) {
    if (connections.empty()) {
        return;
    }
    waitUntilNotRunning([&](const Connection* running) {
        return std::find(connections.begin(), connections.end(), running) != connections.end();
    });
}

void waitForHandlers(const Listener* listener) {
    waitUntilNotRunning([=](const Connection* running) { return running->receiver() == listener; });
}

}  // namespace WIRO::detail
