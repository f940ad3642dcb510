#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

namespace DOVA::session {

/// The page's side of the protocol, written independently of the gateway's: numbers its actions,
/// keeps them, and notes what it hears.
class ModelPage {
public:
    /// What the page does; it travels with the next frame.
    void act(const std::string& channel, const std::string& text) {
        m_actions.push_back('\x1e' + channel + '\x1f' + text);
    }

    /// Everything that is not yet sent on this connection, in one frame.
    std::string frame() {
        std::string frame = std::to_string(m_sent + 1) + "," + std::to_string(heard.size());
        for (; hasUnsent(); ++m_sent) {
            frame += m_actions[m_sent];
        }
        return frame;
    }

    bool hasUnsent() const { return m_sent < m_actions.size(); }
    bool hasUnacknowledged() const { return m_acknowledged < m_actions.size(); }

    /// A data frame from the gateway. Returns false when it breaks the numbering.
    bool hear(const std::string& frame) {
        std::uint64_t number = std::stoull(frame);
        const std::uint64_t acknowledged = std::stoull(frame.substr(frame.find(',') + 1));
        bool inOrder = acknowledged <= m_sent;
        // What waited bears what was known when it was published.
        m_acknowledged = std::max(m_acknowledged, acknowledged);
        for (auto at = frame.find('\x1e'); at != frame.npos; ++number) {
            const auto end = frame.find('\x1e', at + 1);
            if (number == heard.size() + 1) {
                heard.push_back(frame.substr(at + 1, end == frame.npos ? end : end - at - 1));
            }
            inOrder = inOrder && number <= heard.size();
            at = end;
        }
        return inOrder;
    }

    /// The gateway has resumed: it handled everything up to `handled`. The rest goes again.
    void resumed(std::uint64_t handled) { m_acknowledged = m_sent = handled; }

    /// What was heard, each once.
    std::vector<std::string> heard;

private:
    std::vector<std::string> m_actions;
    std::uint64_t m_sent = 0;
    std::uint64_t m_acknowledged = 0;
};

}  // namespace DOVA::session
