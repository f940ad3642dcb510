#include "FrameReceiver.h"

#include "CloseReasons.h"

#include <utility>

namespace DOVA::session {

FrameReceiver::FrameReceiver(SessionRegistry& registry, std::shared_ptr<Session> session)
    : m_registry(registry), m_session(std::move(session)) {}

const CloseReason* FrameReceiver::begin(std::string_view frame) {
    const auto parsed = FrameCodec::parse(frame);
    if (!parsed) {
        return &close_reason::s_malformedFrame;
    }
    m_isQuestion =
        parsed->count == 0 && parsed->acknowledged <= m_session->downward().acknowledged();
    if (const CloseReason* const reason = m_session->accept(*parsed)) {
        return reason;
    }
    m_frame = *parsed;
    m_isKept = false;
    return nullptr;
}

std::size_t FrameReceiver::pending() const {
    return m_session->hasEnded() ? 0 : m_frame.count;
}

void FrameReceiver::keepText() {
    if (!std::exchange(m_isKept, true)) {
        m_kept = m_frame.records;
        m_frame.records = m_kept;
    }
}

const CloseReason* FrameReceiver::handle(Throttle& throttle, std::size_t mostEvents,
                                         Throttle::Clock::time_point now) {
    throttle.refill(now);
    while (pending() > 0 && !throttle.isExhausted()) {
        const Record record = FrameCodec::takeRecord(m_frame.records);
        --m_frame.count;
        const std::size_t weight = FrameCodec::weight(record.text);
        throttle.charge(weight, now);
        if (!m_session->take(m_frame.sequence++)) {
            continue;
        }
        if (weight > mostEvents) {
            return &close_reason::s_tooManyEvents;
        }
        if (const CloseReason* const reason = m_registry.handle(m_session, record)) {
            return reason;
        }
    }
    return nullptr;
}

}  // namespace DOVA::session
