#include "PageSession.h"

#include <algorithm>
#include <utility>

namespace DOVA::load {

void PageSession::push(std::string record) {
    m_pending.push_back(std::move(record));
}

bool PageSession::resume(std::uint64_t handled) {
    if (!drop(handled)) {
        return false;
    }
    m_nextToSend = m_firstPending;
    return true;
}

std::string PageSession::takeFrame() {
    const std::uint64_t end = m_firstPending + m_pending.size();
    if (m_nextToSend == end) {
        return owesAcknowledgement() ? header() : std::string();
    }
    std::string frame = header();
    while (m_nextToSend < end && frame.size() < s_frameBytes) {
        frame += m_pending[m_nextToSend - m_firstPending];
        ++m_nextToSend;
    }
    return frame;
}

std::optional<std::uint64_t> PageSession::receive(const Frame& frame) {
    if (frame.sequence > m_received + 1 || frame.acknowledged >= m_nextToSend) {
        return {};
    }
    drop(std::max(frame.acknowledged, confirmed()));
    const std::uint64_t old = std::min(m_received + 1 - frame.sequence, frame.count);
    m_received += frame.count - old;
    return old;
}

bool PageSession::drop(std::uint64_t handled) {
    if (handled < confirmed() || handled - confirmed() > m_pending.size()) {
        return false;
    }
    for (; m_firstPending <= handled; ++m_firstPending) {
        m_pending.pop_front();
    }
    return true;
}

std::string PageSession::header() {
    m_acknowledged = m_received;
    return std::to_string(m_nextToSend) + "," + std::to_string(m_received);
}

}  // namespace DOVA::load
