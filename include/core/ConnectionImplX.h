#pragma once

#include <cstring>
#include <string>
#include <typeinfo>
#include <utility>

#include "seam/Platform.h"
#include "wiro/ConnectionX.h"
#include "wiro/Emitter.h"
#include "wiro/Listener.h"
#include "wiro/Thread.h"

namespace WIRO {

/// The type of a member operation of Target; of a const one when Target is const.
template <class Target, class R, class... Args>
struct MemberOperation {
    using Type = R (Target::*)(Args...);
};
template <class Target, class R, class... Args>
struct MemberOperation<const Target, R, Args...> {
    using Type = R (Target::*)(Args...) const;
};

/// A connection from an emitter to a member operation, virtual or not, of a listener. Belongs to
/// the signal library like every connection; ends with the emitter or the listener.
template <class Target, class R, class... Args>
class ConnectionImplX final : public ConnectionX<R, Args...> {
public:
    using Operation = typename MemberOperation<Target, R, Args...>::Type;

    /// REQUIRES: the caller holds the global connection lock for writing.
    ConnectionImplX(Listener* listener, EmitterBase* emitter, Target* target, Operation operation,
                    Thread thread)
        : ConnectionX<R, Args...>(listener, emitter),
          m_target(target),
          m_operation(operation),
          m_thread(thread) {
        DOVA::seam::open(*this);
    }

    /// The mangled name of the target's dynamic type. A missing target raises std::bad_typeid.
    const char* objectName() const override {
        const char* name = typeid(*m_target).name();
        return name + (*name == '*' ? 1 : 0);  // a mark of types that are local to one unit
    }
    /// The mangled result type, then the mangled operation type in brackets.
    std::string signature() const override {
        return std::string(typeid(R).name()) + "(" + typeid(Operation).name() + ")";
    }
    R send(Args... args) override { return (m_target->*m_operation)(std::forward<Args>(args)...); }

    /// The thread that made the connection.
    Thread thread() const { return m_thread; }

private:
    Target* m_target;
    Operation m_operation;
    Thread m_thread;
};

namespace detail {

/// What connects to an operation.
template <auto Operation>
struct ConnectionToOperation;
template <class Target, class R, class... Args, R (Target::*Operation)(Args...)>
struct ConnectionToOperation<Operation> {
    using Receiver = Target;
    using Type = ConnectionImplX<Target, R, Args...>;
};
template <class Target, class R, class... Args, R (Target::*Operation)(Args...) const>
struct ConnectionToOperation<Operation> {
    using Receiver = const Target;
    using Type = ConnectionImplX<const Target, R, Args...>;
};

template <auto EmitterOfSet, auto Operation>
Connection& makeBinding(Listener& listener, EmitterBase& emitter, Thread thread) {
    using Made = ConnectionToOperation<Operation>;
    // Fits only what the emitter delivers through.
    DOVA::seam::ConnectionTo<EmitterOfSet>& connection = *new typename Made::Type(
        &listener, &emitter, static_cast<typename Made::Receiver*>(&listener), Operation, thread);
    return connection;
}

template <class Target, class R, class... Args, class Operation>
void bindOperation(Emitter<R(Args...)>& emitter, Listener* listener, Target* target,
                   Operation operation) {
    const Thread thread = Thread::getCurrentThread();
    const DOVA::seam::ConnectionLock lock;
    new ConnectionImplX<Target, R, Args...>(listener, &emitter, target, operation, thread);
}

}  // namespace detail

/// Binds an emitter to an operation of `target`, which is a Listener: from now on the emitter calls
/// it, until either of them is destroyed. Any thread.
template <class Target, class R, class... Args>
void bind(Emitter<R(Args...)>& emitter, Target* target, R (Target::*operation)(Args...)) {
    detail::bindOperation(emitter, target, target, operation);
}
template <class Target, class R, class... Args>
void bind(Emitter<R(Args...)>& emitter, Target* target, R (Target::*operation)(Args...) const) {
    detail::bindOperation(emitter, target, static_cast<const Target*>(target), operation);
}

/// The binding of an emitter, a member of a set, to an operation of a listener.
template <auto EmitterOfSet, auto Operation>
inline constexpr DOVA::seam::LateBinding lateBinding =
    DOVA::seam::lateBinding<EmitterOfSet>(&detail::makeBinding<EmitterOfSet, Operation>);

}  // namespace WIRO
