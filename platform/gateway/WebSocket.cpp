#include "WebSocket.h"

#include <algorithm>
#include <array>
#include <boost/asio/buffer.hpp>
#include <boost/beast/core/bind_handler.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/websocket/error.hpp>
#include <boost/beast/websocket/stream.hpp>
#include <utility>

#include "CloseReasons.h"
#include "GatewayCore.h"
#include "MeteredSocket.h"
#include "RequestNames.h"

namespace DOVA::gateway {

namespace asio = boost::asio;
namespace beast = boost::beast;
namespace websocket = beast::websocket;

namespace {

/// What is read in one go at the most: a page whose frames are shorter costs one step each.
constexpr std::size_t s_pieceBytes = 65536;

/// An empty frame of a page, with its mask.
constexpr std::size_t s_shortestFrame = 6;

bool isFaultOfPage(const beast::error_code& error) {
    return error == websocket::error::message_too_big ||
           error == websocket::condition::protocol_violation;
}

}  // namespace

/// Kept out of the header: nothing takes longer to compile.
struct WebSocket::Transport {
    explicit Transport(Socket socket) : stream(std::move(socket)) {}

    websocket::stream<MeteredSocket, false> stream;
    beast::flat_buffer buffer;
};

WebSocket::WebSocket(Socket socket, std::shared_ptr<GatewayCore> core)
    : Connection(std::move(core)),
      m_transport(std::make_unique<Transport>(std::move(socket))),
      m_watchTimer(executor()) {}

WebSocket::~WebSocket() = default;

Executor WebSocket::executor() const {
    return m_transport->stream.get_executor();
}

void WebSocket::accept(const RequestRouter::Request& request) {
    setOptions(core().router().iconCookie(request));
    m_transport->stream.async_accept(
        request, beast::bind_front_handler(&WebSocket::onAccepted, shared_from_this()));
}

/// Beast's own idle time-out would run on while a flooding page is not being read; ours pauses.
void WebSocket::setOptions(const std::string& cookie) {
    const GatewayLimits& limits = core().options().limits;
    auto& stream = m_transport->stream;
    stream.set_option(websocket::stream_base::timeout{limits.handshakeTime,
                                                      websocket::stream_base::none(), false});
    // Beast writes the refusal of a faulty handshake itself.
    stream.set_option(
        websocket::stream_base::decorator([cookie](websocket::response_type& response) {
            response.set(beast::http::field::sec_websocket_protocol, names::subProtocol);
            response.set(beast::http::field::set_cookie, cookie);
            RequestRouter::addSecurityHeaders(response);
        }));
    stream.control_callback([this](websocket::frame_type, beast::string_view payload) {
        onControlFrame(payload.size());
    });
    stream.next_layer().onWaste([this](std::size_t bytes) {
        onUseless((bytes + s_shortestFrame - 1) / s_shortestFrame,
                  session::close_reason::s_tooManyEmptyFrames);
    });
    stream.read_message_max(limits.upwardFrameBytes);
    stream.auto_fragment(false);
    stream.text(true);
}

void WebSocket::onAccepted(ErrorCode error) {
    if (m_phase == Phase::Cut) {
        return;
    }
    if (error) {
        return cut();
    }
    m_phase = Phase::Open;
    watch();
    onOpened();
}

/// Piece by piece, so that a page that sends a frame in many is slowed down as well.
void WebSocket::read() {
    m_silentSince = Clock::now();
    m_transport->stream.async_read_some(
        m_transport->buffer, s_pieceBytes,
        beast::bind_front_handler(&WebSocket::onRead, shared_from_this()));
}

void WebSocket::onRead(ErrorCode error, std::size_t bytes) {
    m_silentSince.reset();
    m_transport->stream.next_layer().use(bytes);
    if (m_phase == Phase::Cut) {
        return;
    }
    if (error) {
        return onReadFailed(error);
    }
    if (m_transport->stream.got_binary()) {
        return onFault(session::close_reason::s_binaryFrame);
    }
    onPiece(m_transport->stream.is_message_done());
}

void WebSocket::onReadFailed(ErrorCode error) {
    if (m_phase == Phase::Closing) {
        return;
    }
    if (isFaultOfPage(error)) {
        m_phase = Phase::Broken;
        onFault(error == websocket::error::message_too_big
                    ? session::close_reason::s_frameTooLong
                    : session::close_reason::s_unreadableFrame);
    }
    cut();
}

void WebSocket::onControlFrame(std::size_t bytes) {
    m_transport->stream.next_layer().use(bytes);
    if (m_silentSince) {
        m_silentSince = Clock::now();
    }
    onUseless(1, session::close_reason::s_tooManyControlFrames);
}

std::string_view WebSocket::text() const {
    const auto data = m_transport->buffer.data();
    return {static_cast<const char*>(data.data()), data.size()};
}

void WebSocket::discardText() {
    m_transport->buffer.clear();
}

void WebSocket::write(std::string_view header, std::string_view records) {
    m_writingSince = Clock::now();
    const std::array<asio::const_buffer, 2> frame{asio::buffer(header), asio::buffer(records)};
    m_transport->stream.async_write(frame,
                                    [self = shared_from_this()](ErrorCode error, std::size_t) {
                                        self->m_writingSince.reset();
                                        if (error && self->m_phase != Phase::Closing) {
                                            self->cut();
                                        } else if (self->m_phase != Phase::Cut) {
                                            self->onWritten();
                                        }
                                    });
}

void WebSocket::close(const session::CloseReason& reason) {
    m_phase = Phase::Closing;
    m_silentSince.reset();
    m_transport->stream.async_close(
        websocket::close_reason(static_cast<websocket::close_code>(reason.code), reason.text),
        [self = shared_from_this()](ErrorCode) { self->cut(); });
}

void WebSocket::cut() {
    if (std::exchange(m_phase, Phase::Cut) == Phase::Cut) {
        return;
    }
    ErrorCode ignored;
    m_watchTimer.cancel();
    m_transport->stream.next_layer().next_layer().close(ignored);
    onCut(m_transport->stream.reason().code == websocket::close_code::going_away);
}

/// One timer for both limits, so that a write is given up a quarter later than its limit at worst.
void WebSocket::watch() {
    const GatewayLimits& limits = core().options().limits;
    m_watchTimer.expires_after(std::min(limits.idleTime, limits.writeTime) / 4);
    m_watchTimer.async_wait([weak = weak_from_this()](ErrorCode error) {
        const auto self = weak.lock();
        if (self && !error) {
            self->checkTime();
        }
    });
}

void WebSocket::checkTime() {
    const GatewayLimits& limits = core().options().limits;
    const Clock::time_point now = Clock::now();
    const Clock::duration silence = now - m_silentSince.value_or(now);
    if (silence >= limits.idleTime || now - m_writingSince.value_or(now) >= limits.writeTime) {
        return cut();
    }
    if (silence >= limits.idleTime / 2) {
        ping();
    }
    watch();
}

void WebSocket::ping() {
    if (!std::exchange(m_isPinging, true)) {
        m_transport->stream.async_ping(
            {}, [self = shared_from_this()](ErrorCode) { self->m_isPinging = false; });
    }
}

}  // namespace DOVA::gateway
