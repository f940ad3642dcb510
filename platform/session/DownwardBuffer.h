#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <string_view>

#include "session/SessionOptions.h"

namespace DOVA::session {

/// Records that travel, or travelled, in one frame.
struct Chunk {
    std::uint64_t first = 0;
    std::uint64_t count = 0;
    /// The number of the page's last record that the program knew when it published these.
    std::uint64_t known = 0;
    std::string records;
    /// Set when it is first handed out: it never changes afterwards.
    bool sealed = false;

    std::uint64_t last() const { return first + count - 1; }
};

/// The texts on their way to one page, numbered from 1, kept until the page acknowledges them.
/// They are written into chunks as they come, ready to be sent; what a chunk's writer still holds
/// stays alive when the chunk is acknowledged under its hands.
class DownwardBuffer {
public:
    explicit DownwardBuffer(const SessionLimits& limits);

    /// Adds a text that was published when the program knew the page's records up to `known`; one
    /// that knows more than those before it begins a new chunk. False when it would pass a limit:
    /// the text is not kept then.
    bool push(std::string_view channel, std::string_view text, std::uint64_t known);

    /// The next chunk to send, empty when there is none. Later texts go into a new one.
    std::shared_ptr<const Chunk> next();

    /// Whether a chunk is waiting that will not grow any more.
    bool hasFullChunk() const { return m_next + 1 < m_chunks.size(); }
    bool hasUnsent() const { return m_next < m_chunks.size(); }

    /// The number the next record of a frame without records would bear.
    std::uint64_t nextNumber() const { return m_sent + 1; }

    /// The last number that the page has acknowledged.
    std::uint64_t acknowledged() const { return m_acknowledged; }

    /// The page has everything up to `number`. False when that was never sent.
    bool acknowledge(std::uint64_t number);

    /// Starts sending again after `received`, the last text that the page has. False when the
    /// buffer does not hold the texts after it, or that number was never sent.
    bool resume(std::uint64_t received);

    /// Keeps nothing any more.
    void clear();

    /// Bytes that are kept.
    std::size_t bytes() const { return m_bytes; }

private:
    Chunk& chunkFor(std::size_t bytes, std::uint64_t known);
    void dropFirst();
    void trimFirst(std::uint64_t received);

    const std::size_t m_maxBytes;
    const std::size_t m_maxRecords;
    const std::size_t m_joinedBytes;
    std::deque<std::shared_ptr<Chunk>> m_chunks;
    std::size_t m_next = 0;
    std::size_t m_bytes = 0;
    std::size_t m_records = 0;
    std::uint64_t m_last = 0;
    std::uint64_t m_sent = 0;
    std::uint64_t m_acknowledged = 0;
};

}  // namespace DOVA::session
