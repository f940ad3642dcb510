#pragma once

#include <atomic>
#include <string>

#include "wiro/Export.h"

namespace WIRO {

class EmitterBase;
class Listener;
namespace detail {
class Emission;
struct Link;
struct Retired;
}  // namespace detail

/// Joins an emitter to a receiver. Made with `new` under the global connection lock; the signal
/// library owns it from then on. It deletes a connection that was cut from either end, but never
/// while its handler runs on any thread.
class DOVA_WIRO_EXPORT Connection {
public:
    /// Joins `emitter` (not null) to `listener`. With a null listener the connection lasts as long
    /// as the emitter. Nothing is delivered before open(). REQUIRES: the caller holds the global
    /// connection lock for writing; no constructor of a derived class throws after this one,
    /// because the emitter knows the connection from here on.
    Connection(Listener* listener, EmitterBase* emitter);
    virtual ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    /// The mangled name of the receiver's type, for diagnostics.
    virtual const char* objectName() const = 0;
    /// The mangled result and operation types, for diagnostics.
    virtual std::string signature() const = 0;

    /// Cuts the connection; one that is cut already stays so. Emissions of this thread that are
    /// under way skip it. Waits for a handler that runs on another thread: hold no lock that such a
    /// handler takes. Afterwards this object may be gone.
    void disconnect();

    /// The listener given at construction. Only compare the pointer: the listener may be destroyed.
    const Listener* receiver() const { return m_listener; }
    bool isOpen() const { return m_state.load(std::memory_order_acquire) != State::Closed; }

protected:
    /// Lets deliveries through. The constructor of a concrete class calls it last: before that, a
    /// thread that emits would meet a half-made object.
    void open();

private:
    friend class EmitterBase;
    friend class Listener;
    friend class Subscription;
    friend class detail::Emission;

    /// An emission notes what it is about to call, then looks at the state. OpenAfterFence: the
    /// system has no process-wide barrier, so a fence stands between the two.
    enum class State : unsigned char { Closed, Open, OpenAfterFence };

    bool deliversAtOnce() const { return m_state.load(std::memory_order_acquire) == State::Open; }
    bool deliversAfterFence() const;
    void unlink(detail::Retired& retired);
    void leave(detail::Retired& retired);
    void unlinkFromListener();

    std::atomic<State> m_state{State::Closed};
    EmitterBase* m_emitter;  // null once the connection is cut
    Listener* const m_listener;
    Connection* m_nextOfListener = nullptr;
    Connection* m_previousOfListener = nullptr;
    detail::Link* m_link = nullptr;  // while somebody holds a Subscription
};

}  // namespace WIRO
