#pragma once

#include <atomic>
#include <memory>
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

/// One link from an emitter to a receiver. Made with `new` under the global connection lock; from
/// then on it belongs to the signal library, which deletes it after it was disconnected from either
/// end, and never while its handler runs on any thread.
class DOVA_WIRO_EXPORT Connection {
public:
    /// Links `emitter` (not null) with `listener`; with a null listener the link lives as long as
    /// the emitter. Nothing is delivered before open(). REQUIRES: the global connection lock, for
    /// writing; and that no constructor of a derived class throws after this one, since the link
    /// stands from here on.
    Connection(Listener* listener, EmitterBase* emitter);
    virtual ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    /// The mangled name of the receiver's type, for diagnostics.
    virtual const char* objectName() const = 0;
    /// The mangled result and operation types, for diagnostics.
    virtual std::string signature() const = 0;

    /// Cuts the link; does nothing when it is cut already. Emissions of this thread that are under
    /// way skip it; a handler that runs on another thread is waited for, so the caller must hold no
    /// lock that such a handler takes. Afterwards this object may be gone.
    void disconnect();

    /// The listener given at construction, to compare with: it may be destroyed.
    const Listener* receiver() const { return m_listener; }
    bool isOpen() const { return m_state.load(std::memory_order_acquire) != State::Closed; }

protected:
    /// Lets deliveries through. The last thing that the constructor of a concrete class does:
    /// before it, a thread that emits would meet a half-made object.
    void open();

private:
    friend class EmitterBase;
    friend class Listener;
    friend class Subscription;
    friend class detail::Emission;

    /// Open for emissions that said just now what they are about to call. Where the system has no
    /// process-wide barrier, they have to say it with a fence.
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
    std::shared_ptr<detail::Link> m_link;  // only when somebody holds a Subscription
};

}  // namespace WIRO
