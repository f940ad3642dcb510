#include "RemoteProgram.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "CloseReasons.h"
#include "FrameCodec.h"

namespace DOVA::link {

/// The stand-in for a session's end. Its page lets go of it; the program forgets it then.
class RemoteProgram::Link final : public SessionEnd {
public:
    Link(std::shared_ptr<RemoteProgram> program, std::string name, Opening opening, PageEnd& page)
        : m_program(std::move(program)),
          m_name(std::move(name)),
          m_opening(std::move(opening)),
          m_page(&page) {}
    ~Link() override { m_program->m_links.erase(m_name); }

    void begin() { m_program->send(Message::Kind::Open, m_name, message::opening(m_opening)); }

    void receive(std::string_view frame) override {
        Counts& counts = m_program->m_counts;
        counts.bytesUp += frame.size();
        counts.textsUp += static_cast<std::uint64_t>(
            std::count(frame.begin(), frame.end(), session::FrameCodec::s_recordSeparator));
        m_program->send(Message::Kind::Frame, m_name, frame);
    }

    void written(std::size_t bytes) override {
        m_written += bytes;
        if (m_written >= s_creditBytes) {
            m_program->send(Message::Kind::Written, m_name,
                            message::count(std::exchange(m_written, 0)));
        }
    }

    void closed(const session::CloseReason& reason) override {
        if (std::exchange(m_page, nullptr)) {
            m_program->send(Message::Kind::Closed, m_name, message::reason(reason));
        }
    }

    /// The program goes on without this gateway, and its pages come back.
    void finish() override {
        if (PageEnd* const page = m_page) {
            closed(s_connectionLost);
            page->end(session::close_reason::s_restart);
        }
    }

    void hear(const Message& message) {
        if (!m_page) {
            return;
        }
        if (message.kind == Message::Kind::Frame) {
            m_program->m_counts.bytesDown += message.rest.size();
            m_page->send(std::string(message.rest), nullptr);
        } else if (message.kind == Message::Kind::Taken) {
            m_page->taken(message::readCount(message.rest).value_or(0));
        } else if (message.kind == Message::Kind::End) {
            const auto reason = message::readReason(message.rest);
            end(reason ? session::CloseReason{reason->code, reason->text.c_str()}
                       : session::close_reason::s_restart);
        }
    }

    void end(const session::CloseReason& reason) {
        if (PageEnd* const page = std::exchange(m_page, nullptr)) {
            page->end(reason);
        }
    }

private:
    const std::shared_ptr<RemoteProgram> m_program;
    const std::string m_name;
    const Opening m_opening;
    PageEnd* m_page;
    std::size_t m_written = 0;
};

RemoteProgram::~RemoteProgram() {
    abandon();
}

void RemoteProgram::attach(std::shared_ptr<MessageStream> stream) {
    if (m_stream) {
        m_stream->close();
        endLinks(session::close_reason::s_restart);
    }
    m_stream = std::move(stream);
    m_isAttached = true;
    m_stream->listen(*this);
    for (const auto& [name, link] : m_links) {
        link->begin();
    }
}

std::shared_ptr<SessionEnd> RemoteProgram::open(const Opening& opening, PageEnd& page) {
    const std::string name = std::to_string(++m_lastLink);
    ++m_counts.openings;
    m_counts.resumptions += opening.received ? 1 : 0;
    auto link = std::make_shared<Link>(shared_from_this(), name, opening, page);
    m_links.emplace(name, link.get());
    if (m_isAttached) {
        link->begin();
    }
    return link;
}

void RemoteProgram::message(const Message& message) {
    const auto found = m_links.find(message.link);
    if (found != m_links.end()) {
        found->second->hear(message);
    }
}

void RemoteProgram::broken() {
    m_isAttached = false;
    m_stream.reset();
    endLinks(session::close_reason::s_restart);
}

void RemoteProgram::end(const session::CloseReason& reason) {
    abandon();
    endLinks(reason);
}

/// Ending a link may let go of it, and of others.
void RemoteProgram::endLinks(const session::CloseReason& reason) {
    std::vector<std::string> names;
    for (const auto& [name, link] : m_links) {
        names.push_back(name);
    }
    for (const std::string& name : names) {
        const auto found = m_links.find(name);
        if (found != m_links.end()) {
            found->second->end(reason);
        }
    }
}

void RemoteProgram::abandon() {
    m_isAttached = false;
    if (const auto stream = std::exchange(m_stream, nullptr)) {
        stream->close();
    }
}

void RemoteProgram::send(Message::Kind kind, const std::string& link, std::string_view rest) {
    if (m_stream) {
        m_stream->send(kind, link, rest);
    }
}

}  // namespace DOVA::link
