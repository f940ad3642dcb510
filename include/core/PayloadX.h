#pragma once

#include <utility>

#include "core/HandlerErrors.h"
#include "seam/Platform.h"
#include "wiro/ConnectionX.h"
#include "wiro/Emitter.h"
#include "wiro/Packet.h"
#include "wiro/Payload.h"

namespace WIRO {

/// An event on its way. Keeps a copy and gives it to each connection of the emitter. When a
/// receiver throws, a line on the host's console says so, and the others get the event all the
/// same.
template <class R, PacketDropMode dropMode, class Event>
class PayloadX final : public Payload {
public:
    explicit PayloadX(Event event) : m_event(std::move(event)) {}

    void performDeliver(Connection* connection) override {
        DOVA::callHandlers(
            [&] { static_cast<ConnectionX<R, const Event&>*>(connection)->send(m_event); });
    }

private:
    const Event m_event;
};

/// Sends an event to every connection of the emitter, on this thread.
template <class Event>
void sendEvent(Emitter<void(const Event&)>& emitter, Event event,
               DOVA::seam::SendMode mode = DOVA::seam::s_ordinary) {
    PayloadX<void, PacketDropMode{}, Event> payload(std::move(event));
    static_cast<EmitterBase&>(emitter).sendPacket(Packet(payload), mode, false);
}

}  // namespace WIRO
