#include "SocketConnection.h"

#include <algorithm>
#include <array>
#include <boost/asio/buffer.hpp>
#include <boost/asio/post.hpp>
#include <boost/beast/core/bind_handler.hpp>
#include <boost/beast/websocket/error.hpp>
#include <string_view>
#include <utility>

#include "GatewayCore.h"
#include "ProtocolNames.h"

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

SocketConnection::SocketConnection(Socket socket, std::shared_ptr<GatewayCore> core,
                                   RequestRouter::Admission admission)
    : Connection(std::move(core)),
      m_stream(std::move(socket)),
      m_admission(std::move(admission)),
      m_throttle(this->core().options().limits.upwardRecordsPerSecond,
                 this->core().options().limits.upwardBurstRecords),
      m_pauseTimer(m_stream.get_executor()),
      m_acknowledgeTimer(m_stream.get_executor()),
      m_watchTimer(m_stream.get_executor()) {}

SocketConnection::~SocketConnection() {
    cut();
}

void SocketConnection::accept(const RequestRouter::Request& request) {
    setOptions();
    m_stream.async_accept(
        request, beast::bind_front_handler(&SocketConnection::onAccepted, shared_from_this()));
}

/// Beast's own idle time-out would run on while a flooding page is not being read; ours pauses.
void SocketConnection::setOptions() {
    const GatewayLimits& limits = core().options().limits;
    m_stream.set_option(websocket::stream_base::timeout{limits.handshakeTime,
                                                        websocket::stream_base::none(), false});
    // Beast writes the refusal of a faulty handshake itself.
    m_stream.set_option(websocket::stream_base::decorator([](websocket::response_type& response) {
        response.set(beast::http::field::sec_websocket_protocol, names::subProtocol);
        RequestRouter::addSecurityHeaders(response);
    }));
    m_stream.control_callback([this](websocket::frame_type, beast::string_view payload) {
        onControlFrame(payload.size());
    });
    m_stream.next_layer().onWaste([this](std::size_t bytes) {
        chargeUseless((bytes + s_shortestFrame - 1) / s_shortestFrame,
                      close_reason::s_tooManyEmptyFrames);
    });
    m_stream.read_message_max(limits.upwardFrameBytes);
    m_stream.auto_fragment(false);
    m_stream.text(true);
}

void SocketConnection::onAccepted(ErrorCode error) {
    if (m_cut) {
        return;
    }
    if (error) {
        return cut();
    }
    m_open = true;
    m_heard = Clock::now();
    watch();
    if (!m_endReason) {
        open();
    }
    flush();
}

void SocketConnection::open() {
    SessionRegistry& sessions = *core().sessions();
    auto opening =
        sessions.open(m_admission.clientId, m_admission.received, *this, m_admission.attempt);
    m_control = std::move(opening.control);
    m_session = std::move(opening.session);
    if (!m_session) {
        m_endReason = *opening.refusal;
        return;
    }
    m_receiver.emplace(sessions, m_session);
    read();
}

/// Piece by piece, so that a page that sends a frame in many is slowed down as well.
void SocketConnection::read() {
    m_stream.async_read_some(m_buffer, s_pieceBytes,
                             [self = shared_from_this()](ErrorCode error, std::size_t bytes) {
                                 self->m_stream.next_layer().use(bytes);
                                 self->onRead(error);
                             });
}

void SocketConnection::onRead(ErrorCode error) {
    if (m_cut) {
        return;
    }
    if (error) {
        return onReadFailed(error);
    }
    m_heard = Clock::now();
    if (!m_session) {
        return;  // the closing handshake reads what else comes
    }
    m_throttle.charge(1, m_heard);
    if (m_stream.got_binary()) {
        return fail(close_reason::s_binaryFrame);
    }
    if (m_stream.is_message_done()) {
        return onFrame();
    }
    if (m_throttle.isExhausted()) {
        return pause(1);
    }
    read();
}

void SocketConnection::onFrame() {
    const auto data = m_buffer.data();
    if (const CloseReason* const reason =
            m_receiver->begin({static_cast<const char*>(data.data()), data.size()})) {
        return fail(*reason);
    }
    if (m_receiver->isQuestion()) {
        m_answerDue = true;
        flush();
    }
    m_isWorking = true;
    work();
}

void SocketConnection::onControlFrame(std::size_t bytes) {
    m_stream.next_layer().use(bytes);
    m_heard = Clock::now();
    chargeUseless(1, close_reason::s_tooManyControlFrames);
}

/// No browser lets a page send pings or empty frames: whoever sends that many is none. Called
/// inside of Beast's operations.
void SocketConnection::chargeUseless(std::size_t count, const CloseReason& reason) {
    m_throttle.charge(count, Clock::now());
    if (!m_throttle.isOverdrawn() || std::exchange(m_isFlooded, true)) {
        return;
    }
    asio::post(m_stream.get_executor(), [self = shared_from_this(), &reason] {
        if (self->m_session) {
            self->fail(reason);
        }
    });
}

/// Beast has answered a faulty frame with its close code. Such a page would send the same again
/// if it could resume, so its session ends.
void SocketConnection::onReadFailed(ErrorCode error) {
    if (m_session && isFaultOfPage(error)) {
        m_open = false;
        fail(error == websocket::error::message_too_big ? close_reason::s_frameTooLong
                                                        : close_reason::s_unreadableFrame);
    }
    if (!m_closing) {
        cut();
    }
}

void SocketConnection::work() {
    const GatewayLimits& limits = core().options().limits;
    if (const CloseReason* const reason =
            m_receiver->handle(m_throttle, limits.upwardBurstRecords, m_heard)) {
        return fail(*reason);
    }
    if (!m_session) {
        return;
    }
    acknowledgeSoon();
    if (m_receiver->pending() > 0) {
        return pause(m_receiver->pending());
    }
    m_isWorking = false;
    m_buffer.clear();
    if (m_throttle.isExhausted()) {
        return pause(1);
    }
    read();
}

/// The page's rate is used up: what is read is worked off as the rate allows, the rest waits in
/// the network until then.
void SocketConnection::pause(std::size_t events) {
    constexpr std::size_t stepsPerSecond = 20;
    const std::size_t step = core().options().limits.upwardRecordsPerSecond / stepsPerSecond + 1;
    m_paused = true;
    m_pauseTimer.expires_after(m_throttle.waitFor(std::min(step, events)));
    m_pauseTimer.async_wait([self = shared_from_this()](ErrorCode error) {
        self->m_paused = false;
        self->m_heard = Clock::now();
        if (error || !self->m_session) {
            return;
        }
        if (self->m_isWorking) {
            self->work();
        } else {
            self->read();
        }
    });
}

void SocketConnection::fail(const CloseReason& reason) {
    const std::shared_ptr<Session> session = m_session;
    core().sessions()->end(*session, reason);
}

void SocketConnection::textsWait() {
    if (m_writing || !m_open) {
        return;
    }
    if (m_session && m_session->downward().hasFullChunk()) {
        return flush();
    }
    if (std::exchange(m_flushPosted, true)) {
        return;
    }
    asio::post(m_stream.get_executor(), [self = shared_from_this()] {
        self->m_flushPosted = false;
        self->flush();
    });
}

void SocketConnection::end(const CloseReason& reason) {
    m_session.reset();
    m_endReason = reason;
    flush();
}

void SocketConnection::finish() {
    m_endReason = close_reason::s_programEnded;
    asio::post(m_stream.get_executor(), [self = shared_from_this()] { self->flush(); });
}

void SocketConnection::flush() {
    if (!m_open || m_writing || m_closing || m_cut) {
        return;
    }
    if (prepareFrame()) {
        write();
    } else if (m_endReason) {
        close();
    }
}

bool SocketConnection::prepareFrame() {
    m_chunk.reset();
    if (!m_control.empty()) {
        m_header = std::exchange(m_control, {});
        return true;
    }
    if (!m_session) {
        return false;
    }
    m_chunk = m_session->downward().next();
    const bool acknowledges = std::exchange(m_acknowledgeDue, false);
    const bool answers = std::exchange(m_answerDue, false);
    if (!m_chunk && !answers && !(acknowledges && m_session->owesAcknowledgement())) {
        return false;
    }
    m_session->writeHeader(m_header, m_chunk.get());
    return true;
}

void SocketConnection::write() {
    m_writing = true;
    m_writeBegan = Clock::now();
    const std::array<asio::const_buffer, 2> frame{
        asio::buffer(m_header), m_chunk ? asio::buffer(m_chunk->records) : asio::const_buffer()};
    m_stream.async_write(frame, [self = shared_from_this()](ErrorCode error, std::size_t) {
        self->onWritten(error);
    });
}

void SocketConnection::onWritten(ErrorCode error) {
    m_writing = false;
    if (error && !m_closing) {
        return cut();
    }
    flush();
}

/// A timer that runs already is left alone, so that an action which is answered at once costs
/// none; the acknowledgement then comes sooner, never later.
void SocketConnection::acknowledgeSoon() {
    if (!m_session->owesAcknowledgement() || std::exchange(m_acknowledgeArmed, true)) {
        return;
    }
    m_acknowledgeTimer.expires_after(core().options().limits.acknowledgeTime);
    m_acknowledgeTimer.async_wait([weak = weak_from_this()](ErrorCode error) {
        const auto self = weak.lock();
        if (!self || error) {
            return;
        }
        self->m_acknowledgeArmed = false;
        self->m_acknowledgeDue = true;
        self->flush();
    });
}

void SocketConnection::close() {
    m_closing = true;
    m_stream.async_close(
        websocket::close_reason(static_cast<websocket::close_code>(m_endReason->code),
                                m_endReason->text),
        [self = shared_from_this()](ErrorCode) { self->cut(); });
}

void SocketConnection::cut() {
    if (std::exchange(m_cut, true)) {
        return;
    }
    ErrorCode ignored;
    m_pauseTimer.cancel();
    m_acknowledgeTimer.cancel();
    m_watchTimer.cancel();
    m_stream.next_layer().next_layer().close(ignored);
    if (m_session) {
        core().pageLeft(*m_session, *this,
                        m_stream.reason().code == websocket::close_code::going_away
                            ? SessionRegistry::Leaving::Away
                            : SessionRegistry::Leaving::CutOff);
    }
    m_session.reset();
}

void SocketConnection::watch() {
    const GatewayLimits& limits = core().options().limits;
    m_watchTimer.expires_after(std::min(limits.idleTime, limits.writeTime) / 4);
    m_watchTimer.async_wait([weak = weak_from_this()](ErrorCode error) {
        const auto self = weak.lock();
        if (self && !error) {
            self->checkTime();
        }
    });
}

void SocketConnection::checkTime() {
    const GatewayLimits& limits = core().options().limits;
    const Clock::time_point now = Clock::now();
    if (m_writing && now - m_writeBegan >= limits.writeTime) {
        return cut();
    }
    const Clock::duration silence = m_paused || m_closing ? Clock::duration() : now - m_heard;
    if (silence >= limits.idleTime) {
        return cut();
    }
    if (silence >= limits.idleTime / 2) {
        ping();
    }
    watch();
}

void SocketConnection::ping() {
    if (std::exchange(m_pinging, true)) {
        return;
    }
    m_stream.async_ping({}, [self = shared_from_this()](ErrorCode) { self->m_pinging = false; });
}

}  // namespace DOVA::gateway
