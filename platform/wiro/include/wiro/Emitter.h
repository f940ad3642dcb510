#pragma once

#include <type_traits>
#include <utility>

#include "wiro/ConnectionX.h"
#include "wiro/Emission.h"
#include "wiro/EmitterBase.h"

// Qt's headers make "emit" a word that stands for nothing, unless QT_NO_KEYWORDS is defined.
#pragma push_macro("emit")
#undef emit

namespace WIRO {

template <class Signature>
class Emitter;

/// Sends one kind of call. With a void result it is an event: every connection receives it, each
/// its own copy of the arguments. With another result it is a request: the first connection
/// answers. Without a connection the answer is a default value.
template <class R, class... Args>
class Emitter<R(Args...)> : public EmitterBase {
public:
    using ConnectionType = ConnectionX<R, Args...>;

    /// Calls the receivers on this thread, in the order in which they were connected. An exception
    /// from a receiver ends the emission and reaches the caller.
    R operator()(Args... args) const { return deliver(args...); }
    /// The same by name, for sources in which Qt's word "emit" is not defined.
    R emit(Args... args) const { return deliver(args...); }

private:
    R deliver(Args&... args) const {
        const detail::Emission emission(*this);
        if (__builtin_expect(emission.areSeveral(), false)) {
            return deliverToSeveral(emission.pinned(), args...);
        }
        Connection* const only = emission.only();
        if constexpr (std::is_void_v<R>) {
            if (only) {
                static_cast<ConnectionType*>(only)->send(args...);
            }
        } else {
            return only ? static_cast<ConnectionType*>(only)->send(std::forward<Args>(args)...)
                        : R{};
        }
    }

    // Apart, so that the way to one connection needs few registers.
    __attribute__((noinline)) static R deliverToSeveral(detail::Pinned pinned, Args&... args) {
        detail::ConnectionWalk walk(pinned);
        if constexpr (std::is_void_v<R>) {
            while (Connection* connection = walk.next()) {
                static_cast<ConnectionType*>(connection)->send(args...);
            }
        } else {
            Connection* first = walk.next();
            return first ? static_cast<ConnectionType*>(first)->send(std::forward<Args>(args)...)
                         : R{};
        }
    }
};

}  // namespace WIRO

#pragma pop_macro("emit")
