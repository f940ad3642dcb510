#include "DownwardBuffer.h"

#include <algorithm>

#include "FrameCodec.h"

namespace DOVA::session {

DownwardBuffer::DownwardBuffer(const SessionLimits& limits)
    : m_maxBytes(limits.downwardBytes),
      m_maxRecords(limits.downwardRecords),
      m_joinedBytes(limits.joinedFrameBytes) {}

bool DownwardBuffer::push(std::string_view channel, std::string_view text, std::uint64_t known) {
    const std::size_t bytes = channel.size() + text.size() + 2;
    if (m_records >= m_maxRecords || bytes > m_maxBytes - m_bytes) {
        return false;
    }
    Chunk& chunk = chunkFor(bytes, known);
    FrameCodec::appendRecord(chunk.records, channel, text);
    ++chunk.count;
    ++m_last;
    ++m_records;
    m_bytes += bytes;
    return true;
}

void DownwardBuffer::clear() {
    m_chunks.clear();
    m_next = m_bytes = m_records = 0;
}

Chunk& DownwardBuffer::chunkFor(std::size_t bytes, std::uint64_t known) {
    if (m_chunks.empty() || m_chunks.back()->sealed || m_chunks.back()->known != known ||
        m_chunks.back()->records.size() + bytes > m_joinedBytes) {
        m_chunks.push_back(std::make_shared<Chunk>());
        m_chunks.back()->first = m_last + 1;
        m_chunks.back()->known = known;
    }
    return *m_chunks.back();
}

std::shared_ptr<const Chunk> DownwardBuffer::next() {
    if (!hasUnsent()) {
        return {};
    }
    const auto& chunk = m_chunks[m_next++];
    chunk->sealed = true;
    m_sent = chunk->last();
    return chunk;
}

bool DownwardBuffer::acknowledge(std::uint64_t number) {
    if (number > m_sent) {
        return false;
    }
    m_acknowledged = std::max(m_acknowledged, number);
    while (m_next > 0 && m_chunks.front()->last() <= number) {
        dropFirst();
    }
    return true;
}

bool DownwardBuffer::resume(std::uint64_t received) {
    if (received < m_acknowledged || !acknowledge(received)) {
        return false;
    }
    if (m_next > 0 && m_chunks.front()->first <= received) {
        trimFirst(received);
    }
    m_next = 0;
    m_sent = received;
    return true;
}

void DownwardBuffer::dropFirst() {
    m_bytes -= m_chunks.front()->records.size();
    m_records -= m_chunks.front()->count;
    m_chunks.pop_front();
    --m_next;
}

/// A new chunk takes the place of the old one, which a former connection may still be writing.
void DownwardBuffer::trimFirst(std::uint64_t received) {
    const Chunk& old = *m_chunks.front();
    const std::uint64_t surplus = received + 1 - old.first;
    auto rest = std::make_shared<Chunk>();
    rest->first = received + 1;
    rest->count = old.count - surplus;
    rest->known = old.known;
    rest->sealed = true;
    rest->records = FrameCodec::skipRecords(old.records, surplus);
    m_bytes -= old.records.size() - rest->records.size();
    m_records -= surplus;
    m_chunks.front() = std::move(rest);
}

}  // namespace DOVA::session
