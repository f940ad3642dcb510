#pragma once

#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/websocket/stream.hpp>
#include <memory>
#include <optional>
#include <string>

#include "CloseReasons.h"
#include "Connection.h"
#include "FrameReceiver.h"
#include "MeteredSocket.h"
#include "PageLink.h"
#include "RequestRouter.h"
#include "Session.h"
#include "Throttle.h"

namespace DOVA::gateway {

/// One page's WebSocket: carries frames between the network and a session, and keeps the time
/// limits of both directions.
class SocketConnection final : public Connection,
                               public PageLink,
                               public std::enable_shared_from_this<SocketConnection> {
public:
    SocketConnection(Socket socket, std::shared_ptr<GatewayCore> core,
                     RequestRouter::Admission admission);
    ~SocketConnection() override;

    /// Completes the opening handshake that `request` asks for, and serves the page.
    void accept(const RequestRouter::Request& request);

    void finish() override;
    void cut() override;
    void textsWait() override;
    void end(const CloseReason& reason) override;

private:
    using ErrorCode = boost::beast::error_code;
    using Stream = boost::beast::websocket::stream<MeteredSocket, false>;

    void setOptions();
    void onAccepted(ErrorCode error);
    void open();

    void read();
    void onRead(ErrorCode error);
    void onReadFailed(ErrorCode error);
    void onFrame();
    void onControlFrame(std::size_t bytes);
    void chargeUseless(std::size_t count, const CloseReason& reason);
    void work();
    void pause(std::size_t events);
    void fail(const CloseReason& reason);

    void flush();
    bool prepareFrame();
    void write();
    void onWritten(ErrorCode error);
    void acknowledgeSoon();
    void close();

    void watch();
    void checkTime();
    void ping();

    Stream m_stream;
    const RequestRouter::Admission m_admission;
    std::shared_ptr<Session> m_session;
    std::optional<FrameReceiver> m_receiver;
    std::optional<CloseReason> m_endReason;

    boost::beast::flat_buffer m_buffer;
    Throttle m_throttle;
    Timer m_pauseTimer;
    Timer m_acknowledgeTimer;
    Timer m_watchTimer;
    Clock::time_point m_heard;
    Clock::time_point m_writeBegan;

    std::string m_control;
    std::string m_header;
    std::shared_ptr<const Chunk> m_chunk;

    bool m_open = false;
    bool m_writing = false;
    bool m_flushPosted = false;
    bool m_acknowledgeArmed = false;
    bool m_acknowledgeDue = false;
    bool m_answerDue = false;
    bool m_paused = false;
    bool m_isWorking = false;
    bool m_isFlooded = false;
    bool m_pinging = false;
    bool m_closing = false;
    bool m_cut = false;
};

}  // namespace DOVA::gateway
