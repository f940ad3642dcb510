#pragma once

#include <cstdint>
#include <initializer_list>

#include "model/Model.h"
#include "model/Ref.h"
#include "toolkit/DVObject.h"
#include "toolkit/DVWidget2Emitters.h"
#include "toolkit/Enumerations.h"
#include "toolkit/Font.h"
#include "wiro/Connection.h"
#include "wiro/EmitterSet.h"
#include "wiro/GlobalConnectionLock.h"
#include "wiro/Listener.h"
#include "wiro/Packet.h"

/// The names that are the embedded platform's own. For another platform, change this folder and
/// web/seam; web/platform-names.txt lists every name of the platform that the library uses.
namespace DOVA::seam {

using Font = DOVA::Font;
using FocusPolicy = DOVA::FocusPolicy;
using SizeConstraint = DOVA::SizeConstraint;
using SizePolicy = DOVA::SizePolicy;
using TextMessage = DOVA::TextMessage;
using ModelReference = pf::zero::Ref<pf::zero::Model>;

/// How an event is sent: 0 for what the user did, 1 for what must be delivered at once.
using SendMode = WIRO::SendMode;
inline constexpr SendMode s_ordinary{0};
inline constexpr SendMode s_synchronous{1};

/// The identifier of a front object, by which messages name it.
inline std::uint32_t identifierOf(const DVObject& object) {
    return object.identifier();
}

/// Holds the global connection lock for writing while it lives.
class ConnectionLock {
public:
    ConnectionLock() : m_guard(WIRO::GetGlobalConnectionLock()) {}

private:
    ReadWriteLock::WriteGuard m_guard;
};

/// Lets deliveries through a connection. Its constructor calls it last.
inline void open(WIRO::Connection& connection) {
    struct Opener : WIRO::Connection {
        static void apply(WIRO::Connection& made) { (made.*(&Opener::open))(); }
    };
    Opener::apply(connection);
}

/// How an emitter of a front object's set is bound to an operation of a listener: a constant for
/// each emitter and operation.
using LateBinding = WIRO::detail::Promise;
/// `make` makes the connection; its result says of what type.
template <auto Emitter>
constexpr LateBinding lateBinding(WIRO::Connection& (*make)(WIRO::Listener&, WIRO::EmitterBase&,
                                                            WIRO::Thread)) {
    return {&WIRO::detail::PlaceInSet<Emitter>::emitterOf, make};
}
/// What connects to an emitter that is a member of a set.
template <auto Emitter>
using ConnectionTo = typename WIRO::detail::PlaceInSet<Emitter>::Connection;

/// Binds emitters of a set to a listener. A connection is made when its emitter is first used; on a
/// platform that cannot wait, at once.
inline void bind(WIRO::EmitterSet& emitters, WIRO::Listener& listener,
                 std::initializer_list<const LateBinding*> bindings) {
    emitters.promise(listener, bindings);
}

/// Cuts every connection to a listener: no emitter reaches it any more.
inline void disconnect(WIRO::Listener& listener) {
    listener.disconnectAll();
}

}  // namespace DOVA::seam
