#include "Session.h"

#include <utility>

namespace DOVA::gateway {

Session::Session(std::string id, const GatewayLimits& limits)
    : m_id(std::move(id)), m_downward(limits) {}

void Session::setEnded() {
    m_ended = true;
    m_downward.clear();
}

const CloseReason* Session::accept(const Frame& frame) {
    if (frame.sequence > m_received + 1)
        return &close_reason::kGap;
    if (!m_downward.acknowledge(frame.acknowledged))
        return &close_reason::kFalseAcknowledgement;
    return nullptr;
}

bool Session::take(std::uint64_t number) {
    if (number != m_received + 1)
        return false;
    m_received = number;
    return true;
}

void Session::writeHeader(std::string& into, std::uint64_t sequence) {
    FrameCodec::writeHeader(into, sequence, m_received);
    m_acknowledged = m_received;
}

bool Session::resume(std::uint64_t received) {
    if (!m_downward.resume(received))
        return false;
    m_acknowledged = m_received;  // the control frame tells the page
    return true;
}

}  // namespace DOVA::gateway
