#pragma once

#include <string>
#include <type_traits>
#include <typeinfo>
#include <utility>

#include "wiro/Emitter.h"
#include "wiro/GlobalConnectionLock.h"
#include "wiro/Subscription.h"

namespace WIRO {

namespace detail {

template <class Callable>
struct CallableHolder {
    Callable callable;
};

}  // namespace detail

/// A connection to any callable, which it owns. It lasts as long as the emitter, or until its
/// Subscription cuts it. The callable is destroyed when no emission uses it any more, on the thread
/// that used or cut it last.
template <class Callable, class R, class... Args>
class CallableConnection final : private detail::CallableHolder<Callable>,
                                 public ConnectionX<R, Args...> {
public:
    /// REQUIRES: the caller holds the global connection lock for writing.
    template <class Source>
    CallableConnection(EmitterBase* emitter, Source&& source)
        // The callable comes first: if copying it throws, there is no connection yet.
        : detail::CallableHolder<Callable>{std::forward<Source>(source)},
          ConnectionX<R, Args...>(nullptr, emitter) {
        this->open();
    }
    const char* objectName() const override { return typeid(Callable).name(); }
    std::string signature() const override { return typeid(R(Args...)).name(); }
    R send(Args... args) override {
        if constexpr (std::is_invocable_r_v<R, Callable&, Args...>) {
            return this->callable(std::forward<Args>(args)...);
        } else {
            return this->callable();
        }
    }
};

/// Connects a callable that takes what the emitter sends, or nothing at all. The connection keeps a
/// copy of it. Any thread; takes the global connection lock itself. Who drops the answer leaves the
/// connection in place.
template <class R, class... Args, class Callable>
Subscription connect(Emitter<R(Args...)>& emitter, Callable&& callable) {
    using Implementation = CallableConnection<std::decay_t<Callable>, R, Args...>;
    DOVA::ReadWriteLock::WriteGuard guard(GetGlobalConnectionLock());
    return Subscription(*new Implementation(&emitter, std::forward<Callable>(callable)));
}

}  // namespace WIRO
