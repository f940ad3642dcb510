#pragma once

#include <atomic>
#include <cstdint>
#include <initializer_list>

#include "wiro/Emitter.h"
#include "wiro/Export.h"
#include "wiro/Listener.h"
#include "wiro/Thread.h"

namespace WIRO {

namespace detail {

/// How a connection between an emitter of a set and a listener is made: a constant for each kind of
/// connection, which lives until the listener is gone. `make` is called under the global connection
/// lock, held for writing.
struct alignas(8) Promise {
    EmitterBase& (*emitterOf)(EmitterSet& set);
    Connection& (*make)(Listener& listener, EmitterBase& emitter, Thread thread);
};

}  // namespace detail

/// The base of a class whose members are emitters, most of which one listener answers, such as the
/// requests of a front object to its implementation. Its connections may be promised: each is made
/// when its emitter is first used, and until then costs nothing. An emitter with a promise counts
/// it as a connection, in the order in which promises and connections were made.
class DOVA_WIRO_EXPORT EmitterSet {
public:
    EmitterSet() = default;
    EmitterSet(const EmitterSet&) = delete;
    EmitterSet& operator=(const EmitterSet&) = delete;
    virtual ~EmitterSet();

    /// Connects emitters of this set to `listener`, by promises as far as that can be: to the first
    /// listener of a set that has no other set with promises. Everything else is connected at once.
    /// Any thread; takes the global connection lock itself.
    void promise(Listener& listener, std::initializer_list<const detail::Promise*> promises);

private:
    friend class EmitterBase;
    friend class Listener;

    bool mayPromise(const Listener& listener) const;

    std::atomic<Listener*> m_listener{nullptr};  // null again once it is gone: the end of promises
    Thread m_thread;                             // the one that promised
};

namespace detail {

/// Where an emitter is in its set: `Member` is a pointer to a member of a class that extends
/// EmitterSet.
template <auto Member>
struct PlaceInSet;

template <class Set, class Signature, Emitter<Signature> Set::*Member>
struct PlaceInSet<Member> {
    using Connection = typename Emitter<Signature>::ConnectionType;

    static EmitterBase& emitterOf(EmitterSet& set) { return static_cast<Set&>(set).*Member; }
};

}  // namespace detail

}  // namespace WIRO
