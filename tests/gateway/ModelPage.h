#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace DOVA::gateway {

/// The page's side of the protocol, written independently of the gateway's: numbers its actions,
/// keeps them until they are acknowledged, and notes what it hears.
class ModelPage {
public:
    /// What the page does; it travels with the next frame.
    void act(const std::string& channel, const std::string& text) {
        m_waiting.push_back('\x1e' + channel + '\x1f' + text);
    }

    /// Everything that is not yet sent on this connection, in one frame.
    std::string frame() {
        std::string frame =
            std::to_string(m_acknowledged + m_sent + 1) + "," + std::to_string(m_received);
        for (; m_sent < m_waiting.size(); ++m_sent)
            frame += m_waiting[m_sent];
        return frame;
    }

    bool hasUnsent() const { return m_sent < m_waiting.size(); }
    bool hasUnacknowledged() const { return !m_waiting.empty(); }

    /// A data frame from the gateway. Returns false when it breaks the numbering.
    bool hear(std::string_view frame) {
        const auto records = frame.find('\x1e');
        const std::string header(frame.substr(0, records));
        std::uint64_t number = std::stoull(header);
        dropActions(std::stoull(header.substr(header.find(',') + 1)));
        for (auto at = records; at != std::string_view::npos; ++number) {
            const auto end = frame.find('\x1e', at + 1);
            hearRecord(number, frame.substr(at + 1, end == frame.npos ? end : end - at - 1));
            at = end;
        }
        return m_inOrder;
    }

    /// The gateway has resumed: it handled everything up to `handled`. The rest goes again.
    void resumed(std::uint64_t handled) {
        dropActions(handled);
        m_sent = 0;
    }

    std::uint64_t received() const { return m_received; }

    /// "channel=text" of everything that was heard, each once.
    const std::vector<std::string>& heard() const { return m_heard; }

private:
    void dropActions(std::uint64_t acknowledged) {
        for (; m_acknowledged < acknowledged && !m_waiting.empty(); ++m_acknowledged) {
            m_waiting.pop_front();
            m_sent -= m_sent > 0 ? 1 : 0;
        }
        m_inOrder = m_inOrder && m_acknowledged >= acknowledged;
    }

    void hearRecord(std::uint64_t number, std::string_view record) {
        m_inOrder = m_inOrder && number <= m_received + 1;
        if (number != m_received + 1)
            return;
        m_received = number;
        const auto channelEnd = record.find('\x1f');
        m_heard.push_back(std::string(record.substr(0, channelEnd)) + "=" +
                          std::string(record.substr(channelEnd + 1)));
    }

    std::deque<std::string> m_waiting;
    std::size_t m_sent = 0;
    std::uint64_t m_acknowledged = 0;
    std::uint64_t m_received = 0;
    bool m_inOrder = true;
    std::vector<std::string> m_heard;
};

}  // namespace DOVA::gateway
