#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "MessageStream.h"
#include "SessionEnd.h"

namespace DOVA::link {

/// A program in another process, as the gateway sees it: pages are joined to it through the stream
/// that it has opened. One that is not there yet, or not there for a moment, is waited for: pages
/// that come are opened when it is.
class RemoteProgram final : public Program,
                            public std::enable_shared_from_this<RemoteProgram>,
                            private MessageStream::Listener {
public:
    RemoteProgram() = default;
    ~RemoteProgram() override;

    /// The program is there; from now on what comes is heard here. A stream that it had before is
    /// closed.
    void attach(std::shared_ptr<MessageStream> stream);

    /// Whether the program is there.
    bool isAttached() const { return m_isAttached; }

    /// What has passed, of all pages together.
    struct Counts {
        std::uint64_t openings = 0;
        std::uint64_t resumptions = 0;  ///< openings that go on with a session
        std::uint64_t textsUp = 0;
        std::uint64_t bytesUp = 0;
        std::uint64_t bytesDown = 0;
    };
    const Counts& counts() const { return m_counts; }

    /// How many pages are connected, or wait to be.
    std::size_t links() const { return m_links.size(); }

    /// The program has ended, or never came: its pages, and those that wait, are closed with this.
    void end(const session::CloseReason& reason);

    std::shared_ptr<SessionEnd> open(const Opening& opening, PageEnd& page) override;
    void abandon() override;

private:
    class Link;

    void message(const Message& message) override;
    void broken() override;
    void endLinks(const session::CloseReason& reason);
    void send(Message::Kind kind, const std::string& link, std::string_view rest);

    std::shared_ptr<MessageStream> m_stream;
    std::map<std::string, Link*, std::less<>> m_links;
    Counts m_counts;
    std::uint64_t m_lastLink = 0;
    bool m_isAttached = false;
};

}  // namespace DOVA::link
