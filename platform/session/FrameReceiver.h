#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "SessionRegistry.h"
#include "Throttle.h"

namespace DOVA::session {

/// Works off the frames of one page, record by record, in as many steps as its rate allows.
class FrameReceiver {
public:
    FrameReceiver(SessionRegistry& registry, std::shared_ptr<Session> session);

    /// Takes up a frame, when the one before is worked off; its text must stay until then, or until
    /// keepText(). A reason when the frame is malformed or breaks the numbering: none of it is
    /// handled then.
    const CloseReason* begin(std::string_view frame);

    /// Whether the frame says nothing: no record, and no acknowledgement that was not known. With
    /// such a one a page asks whether anybody is there, and waits for any frame.
    bool isQuestion() const { return m_isQuestion; }

    /// Records of the frame that are still to be handled; none once the session has ended.
    std::size_t pending() const;

    /// Copies what is left of the frame's text, which may go then.
    void keepText();

    /// Handles records until the throttle, which is charged for each, is exhausted; those with
    /// numbers that were handled before are skipped. A reason when the page may not send one of
    /// them, or one holds more than `mostEvents`: what follows it is not handled.
    const CloseReason* handle(Throttle& throttle, std::size_t mostEvents,
                              Throttle::Clock::time_point now);

private:
    SessionRegistry& m_registry;
    const std::shared_ptr<Session> m_session;
    Frame m_frame;
    std::string m_kept;
    bool m_isKept = false;
    bool m_isQuestion = false;
};

}  // namespace DOVA::session
