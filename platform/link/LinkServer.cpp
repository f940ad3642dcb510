#include "LinkServer.h"

#include <boost/asio/local/stream_protocol.hpp>
#include <system_error>
#include <utility>
#include <vector>

#include "log/Log.h"

namespace DOVA::link {

namespace asio = boost::asio;

namespace {

constexpr std::chrono::milliseconds s_retryTime{200};

}  // namespace

/// A page that is connected elsewhere.
struct LinkServer::Link final : PageEnd {
    Link(LinkServer& server, std::string name) : m_server(server), m_name(std::move(name)) {}

    void send(std::string head, std::shared_ptr<const std::string> records) override {
        m_server.m_stream->send(Message::Kind::Frame, m_name, head, std::move(records));
    }

    void taken(std::size_t bytes) override {
        m_taken += bytes;
        if (m_taken >= s_creditBytes) {
            m_server.m_stream->send(Message::Kind::Taken, m_name,
                                    message::count(std::exchange(m_taken, 0)));
        }
    }

    void end(const session::CloseReason& reason) override {
        m_server.m_stream->send(Message::Kind::End, m_name, message::reason(reason));
        m_server.take(m_name);  // which may be the last that holds it
    }

    std::shared_ptr<SessionEnd> session;

private:
    LinkServer& m_server;
    const std::string m_name;
    std::size_t m_taken = 0;
};

LinkServer::LinkServer(asio::io_context& loop, const session::SessionOptions& options,
                       std::string socketPath, message::Properties hello)
    : m_socketPath(std::move(socketPath)),
      m_patience(options.graceTime),
      m_hello(message::hello(hello)),
      m_program(std::make_shared<LocalProgram>(loop, options, s_windowBytes)),
      m_retryTimer(loop.get_executor()) {}

LinkServer::~LinkServer() {
    if (m_stream) {
        m_stream->close();
    }
    m_program->abandon();
}

void LinkServer::start(std::function<void()> whenAbandoned) {
    m_whenAbandoned = std::move(whenAbandoned);
    connect();
}

void LinkServer::connect() {
    LocalSocket socket(m_program->executor());
    boost::system::error_code error;
    socket.connect(asio::local::stream_protocol::endpoint(m_socketPath), error);
    if (error) {
        throw std::system_error(error.value(), std::system_category(),
                                "cannot reach the gateway at " + m_socketPath);
    }
    m_stream = std::make_shared<MessageStream>(std::move(socket));
    m_stream->listen(*this);
    m_stream->send(Message::Kind::Hello, {}, m_hello);
}

/// The other side is started again, perhaps; the pages come back by themselves.
void LinkServer::broken() {
    log::write(log::Level::Warning, "link", "the gateway is gone");
    for (const auto& [name, link] : std::exchange(m_links, {})) {
        link->session->closed(s_connectionLost);
    }
    m_lostAt = Clock::now();
    connectAgain();
}

void LinkServer::connectAgain() {
    if (m_isStopping) {
        return;
    }
    if (Clock::now() - m_lostAt > m_patience) {
        return m_whenAbandoned();
    }
    m_retryTimer.expires_after(s_retryTime);
    m_retryTimer.async_wait([weak = weak_from_this()](boost::system::error_code error) {
        const auto self = weak.lock();
        if (!self || error) {
            return;
        }
        try {
            self->connect();
        } catch (const std::system_error&) {
            self->connectAgain();
        }
    });
}

void LinkServer::message(const Message& message) {
    const auto found = m_links.find(message.link);
    if (message.kind == Message::Kind::Open) {
        open(message);
    } else if (found != m_links.end()) {
        const std::shared_ptr<Link> link = found->second;  // which may end in this
        tell(*link, message);
    }
}

void LinkServer::open(const Message& message) {
    const auto opening = message::readOpening(message.rest);
    const std::string name(message.link);
    if (!opening || m_links.count(name) > 0) {
        return;
    }
    const auto link = std::make_shared<Link>(*this, name);
    m_links.emplace(name, link);
    link->session = m_program->open(*opening, *link);
}

void LinkServer::tell(Link& link, const Message& message) {
    const std::shared_ptr<SessionEnd> session = link.session;
    if (message.kind == Message::Kind::Frame) {
        session->receive(message.rest);
    } else if (message.kind == Message::Kind::Written) {
        session->written(message::readCount(message.rest).value_or(0));
    } else if (message.kind == Message::Kind::Closed) {
        take(std::string(message.link));
        const auto reason = message::readReason(message.rest);
        session->closed(reason ? session::CloseReason{reason->code, reason->text.c_str()}
                               : s_connectionLost);
    }
}

std::shared_ptr<LinkServer::Link> LinkServer::take(const std::string& name) {
    const auto found = m_links.find(name);
    if (found == m_links.end()) {
        return {};
    }
    auto link = std::move(found->second);
    m_links.erase(found);
    tellWhenStopped();
    return link;
}

void LinkServer::tellWhenStopped() {
    if (m_whenStopped && m_links.empty()) {
        m_stream->whenSent(std::exchange(m_whenStopped, nullptr));
    }
}

void LinkServer::stop(std::function<void()> whenStopped) {
    m_isStopping = true;
    m_whenStopped = std::move(whenStopped);
    m_retryTimer.cancel();
    std::vector<std::shared_ptr<Link>> links;
    for (const auto& [name, link] : m_links) {
        links.push_back(link);
    }
    for (const auto& link : links) {
        link->session->finish();
    }
    tellWhenStopped();
}

}  // namespace DOVA::link
