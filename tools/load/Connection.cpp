#include "Connection.h"

#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/websocket/stream.hpp>
#include <optional>
#include <utility>
#include <vector>

#include "ProtocolNames.h"

namespace DOVA::load {

namespace asio = boost::asio;
namespace beast = boost::beast;
namespace websocket = beast::websocket;
using ErrorCode = boost::system::error_code;

namespace {

constexpr std::uint16_t s_abnormal = 1006;
/// What a page says is short; Beast masks it in a buffer of this size for each connection.
constexpr std::size_t s_maskBuffer = 512;

}  // namespace

/// Outlives the connection until its last operation has ended.
class Connection::Transport : public std::enable_shared_from_this<Transport> {
public:
    explicit Transport(Listener& listener) : m_listener(&listener) {}

    void open(Line& line, const Address& address, const SocketRequest& request) {
        line.connect([self = shared_from_this(), host = address.host, origin = address.origin(),
                      request](ErrorCode error, Socket socket) {
            self->connected(error, std::move(socket), {host, origin, request});
        });
    }

    void send(std::string frame) {
        m_waiting.push_back(std::move(frame));
        if (!m_isWriting && m_isOpen) {
            write();
        }
    }

    void drop() {
        m_listener = nullptr;
        if (m_stream) {
            ErrorCode ignored;
            m_stream->next_layer().close(ignored);
        }
    }

    void leave() {
        m_listener = nullptr;
        if (m_isOpen) {
            m_stream->async_close(websocket::close_code::going_away,
                                  [self = shared_from_this()](ErrorCode) {});
        } else {
            drop();
        }
    }

private:
    /// No compression: pages of ours do not offer it to this server.
    using Stream = websocket::stream<Socket, false>;
    struct Opening {
        std::string host;
        std::string origin;
        SocketRequest request;
    };

    void connected(ErrorCode error, Socket socket, const Opening& opening) {
        if (error || !m_listener) {
            return failed();
        }
        m_stream.emplace(std::move(socket));
        m_stream->write_buffer_bytes(s_maskBuffer);
        m_stream->auto_fragment(false);
        m_stream->read_message_max(0);
        m_stream->set_option(
            websocket::stream_base::decorator([&opening](websocket::request_type& asked) {
                asked.set(beast::http::field::origin, opening.origin);
                asked.set(beast::http::field::sec_websocket_protocol, opening.request.subProtocols);
            }));
        const auto answer = std::make_shared<websocket::response_type>();
        m_stream->async_handshake(*answer, opening.host, opening.request.target,
                                  [self = shared_from_this(), answer](ErrorCode refused) {
                                      self->opened(refused, answer->result_int());
                                  });
    }

    void opened(ErrorCode error, unsigned status) {
        if (error == websocket::error::upgrade_declined && m_listener) {
            return std::exchange(m_listener, nullptr)->refused(status);
        }
        if (error) {
            return failed();
        }
        m_isOpen = true;
        m_stream->text(true);
        read();
        if (!m_waiting.empty()) {
            write();
        }
    }

    void failed() {
        if (m_listener) {
            std::exchange(m_listener, nullptr)->closed(codeOfEnd());
        }
    }

    std::uint16_t codeOfEnd() const {
        const bool wasTold = m_stream && m_stream->reason().code != websocket::close_code::none;
        return wasTold ? static_cast<std::uint16_t>(m_stream->reason().code) : s_abnormal;
    }

    void read() {
        m_stream->async_read(m_buffer, [self = shared_from_this()](ErrorCode error, std::size_t) {
            self->onRead(error);
        });
    }

    /// What comes is short, but for a description: such a buffer is not kept.
    void onRead(ErrorCode error) {
        if (error) {
            return failed();
        }
        if (m_listener) {
            const auto data = m_buffer.data();
            m_listener->message({static_cast<const char*>(data.data()), data.size()});
        }
        m_buffer.clear();
        if (m_buffer.capacity() > s_keptBuffer) {
            m_buffer.shrink_to_fit();
        }
        read();
    }

    void write() {
        m_isWriting = true;
        m_writing = std::move(m_waiting.front());
        m_waiting.erase(m_waiting.begin());
        m_stream->async_write(
            asio::buffer(m_writing),
            [self = shared_from_this()](ErrorCode error, std::size_t) { self->onWritten(error); });
    }

    void onWritten(ErrorCode error) {
        m_isWriting = false;
        if (!error && !m_waiting.empty()) {
            write();
        }
    }

    static constexpr std::size_t s_keptBuffer = 2048;

    Listener* m_listener;
    std::optional<Stream> m_stream;
    beast::flat_buffer m_buffer;
    std::vector<std::string> m_waiting;
    std::string m_writing;
    bool m_isOpen = false;
    bool m_isWriting = false;
};

Connection::Connection(Line& line, const Address& address, const SocketRequest& request,
                       Listener& listener)
    : m_transport(std::make_shared<Transport>(listener)) {
    m_transport->open(line, address, request);
}

Connection::~Connection() {
    if (m_transport) {
        m_transport->drop();
    }
}

void Connection::send(std::string frame) {
    m_transport->send(std::move(frame));
}

void Connection::leave() {
    std::exchange(m_transport, nullptr)->leave();
}

}  // namespace DOVA::load
