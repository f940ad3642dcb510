#pragma once

#include <boost/circular_buffer.hpp>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "Frame.h"

namespace DOVA::load {

/// The numbers of one session at the page's end: records up are kept until they are acknowledged,
/// records down are counted once and in order. It knows no socket and no clock.
class PageSession {
public:
    /// The number of the last record down that came.
    std::uint64_t received() const { return m_received; }
    bool owesAcknowledgement() const { return m_received > m_acknowledged; }
    /// The number of the last record up that was acknowledged.
    std::uint64_t confirmed() const { return m_firstPending - 1; }
    /// Sent and not acknowledged: the number of the first such record; 0 for none.
    std::uint64_t firstAwaited() const {
        return m_nextToSend > m_firstPending ? m_firstPending : 0;
    }

    void push(std::string record);
    /// A new connection takes over, whose other end has everything up to `handled`. False when the
    /// two ends do not fit together.
    bool resume(std::uint64_t handled);
    /// What is not yet sent on this connection, or the acknowledgement that is due; empty: nothing.
    std::string takeFrame();
    /// A frame that says nothing; whoever gets it answers.
    std::string question() { return header(); }

    /// How many of the frame's records are old. Nothing for a frame that cannot belong to this
    /// session: a gap, or an acknowledgement of what was never sent.
    std::optional<std::uint64_t> receive(const Frame& frame);

private:
    /// Well below what a server takes in one frame.
    static constexpr std::size_t s_frameBytes = 250'000;

    bool drop(std::uint64_t handled);
    std::string header();

    boost::circular_buffer_space_optimized<std::string> m_pending{1 << 24};
    std::uint64_t m_firstPending = 1;
    std::uint64_t m_nextToSend = 1;
    std::uint64_t m_received = 0;
    std::uint64_t m_acknowledged = 0;
};

}  // namespace DOVA::load
