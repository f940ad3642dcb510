#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>

#include "CloseReason.h"
#include "DownwardBuffer.h"
#include "FrameCodec.h"
#include "PageLink.h"
#include "messaging/MessageBus.h"

namespace DOVA::session {

/// What one page and the gateway have told each other, whatever becomes of the connection between
/// them: the numbers of both directions, the texts that are still unacknowledged, and the link of
/// the moment. No sockets, no clock.
class Session {
public:
    Session(std::string id, const SessionLimits& limits);

    const std::string& id() const { return m_id; }

    /// The connection that serves the page now; null between two. It takes itself out before it
    /// goes.
    PageLink* link() const { return m_link; }
    void setLink(PageLink* link) { m_link = link; }

    /// Whether this connection of the page is older than the one that was served last: it was
    /// begun first and came last. 0 is one that the page did not count.
    bool isOutdated(std::uint64_t attempt) const { return attempt > 0 && attempt <= m_attempt; }
    void setAttempt(std::uint64_t attempt) { m_attempt = attempt; }

    /// Whether the page has said that it is ready: the program knows of it then.
    bool isReady() const { return m_ready; }
    void setReady() { m_ready = true; }

    /// Whether the registry has ended it; nothing may be sent or handled any more, and nothing is
    /// kept.
    bool hasEnded() const { return m_ended; }
    void setEnded();

    DownwardBuffer& downward() { return m_downward; }

    /// Reads the header of a frame from the page; a reason when it breaks the numbering.
    const CloseReason* accept(const Frame& frame);

    /// Whether the record with this number is the next one; it counts as handled then. One that
    /// was handled before answers false.
    bool take(std::uint64_t number);

    /// Number of the last record that was handled.
    std::uint64_t received() const { return m_received; }

    /// The record that was taken last is on its way to the program, at this place of the bus.
    void passedOn(tdom::messaging::MessageBus::Place place);

    /// Everything that was passed on has reached the program, and no text that was published
    /// before that is still on its way.
    void settle();

    /// The number of the last record that the publisher of a text knew: texts come in the order of
    /// their places, and this one was published when the delivery of `lastKnown` had begun.
    std::uint64_t knownAt(tdom::messaging::MessageBus::Place lastKnown);

    /// Whether records were handled that no frame has acknowledged yet.
    bool owesAcknowledgement() const { return m_received != m_acknowledged; }

    /// Header of the frame to the page that carries this chunk; null for one without records,
    /// which acknowledges everything that came.
    void writeHeader(std::string& into, const Chunk* chunk);

    /// Goes on where a former connection stopped: the page has `received` texts. False when the
    /// texts after that are not there.
    bool resume(std::uint64_t received);

private:
    struct PassedOn {
        tdom::messaging::MessageBus::Place place;
        std::uint64_t number;
    };

    const std::string m_id;
    DownwardBuffer m_downward;
    PageLink* m_link = nullptr;
    std::uint64_t m_attempt = 0;
    std::deque<PassedOn> m_passedOn;
    std::uint64_t m_known = 0;
    std::uint64_t m_received = 0;
    std::uint64_t m_acknowledged = 0;
    bool m_ready = false;
    bool m_ended = false;
};

}  // namespace DOVA::session
