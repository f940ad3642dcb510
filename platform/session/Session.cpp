#include "Session.h"

#include "CloseReasons.h"

#include <algorithm>
#include <utility>

namespace DOVA::session {

Session::Session(std::string id, const SessionLimits& limits)
    : m_id(std::move(id)), m_downward(limits) {}

void Session::setEnded() {
    m_ended = true;
    m_downward.clear();
}

const CloseReason* Session::accept(const Frame& frame) {
    if (frame.sequence > m_received + 1) {
        return &close_reason::s_gap;
    }
    if (!m_downward.acknowledge(frame.acknowledged)) {
        return &close_reason::s_falseAcknowledgement;
    }
    return nullptr;
}

bool Session::take(std::uint64_t number) {
    if (number != m_received + 1) {
        return false;
    }
    m_received = number;
    return true;
}

void Session::passedOn(tdom::messaging::MessageBus::Place place) {
    m_passedOn.push_back({place, m_received});
}

void Session::settle() {
    if (!m_passedOn.empty()) {
        m_known = m_passedOn.back().number;
    }
    m_passedOn.clear();
}

std::uint64_t Session::knownAt(tdom::messaging::MessageBus::Place lastKnown) {
    for (; !m_passedOn.empty() && m_passedOn.front().place <= lastKnown; m_passedOn.pop_front()) {
        m_known = m_passedOn.front().number;
    }
    return m_known;
}

void Session::writeHeader(std::string& into, const Chunk* chunk) {
    const std::uint64_t acknowledged = chunk ? chunk->known : m_received;
    FrameCodec::writeHeader(into, chunk ? chunk->first : m_downward.nextNumber(), acknowledged);
    m_acknowledged = std::max(m_acknowledged, acknowledged);
}

bool Session::resume(std::uint64_t received) {
    if (!m_downward.resume(received)) {
        return false;
    }
    m_acknowledged = m_received;  // the control frame tells the page
    return true;
}

}  // namespace DOVA::session
