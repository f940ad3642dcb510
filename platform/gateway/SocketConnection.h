#pragma once

#include <memory>
#include <optional>
#include <string>

#include "FrameReceiver.h"
#include "PageLink.h"
#include "RequestRouter.h"
#include "Session.h"
#include "Throttle.h"
#include "WebSocket.h"

namespace DOVA::gateway {

/// One page's connection: carries frames between its WebSocket and its session, upwards as fast as
/// the page may send, downwards joined as they come.
class SocketConnection final : public WebSocket, public session::PageLink {
public:
    SocketConnection(Socket socket, std::shared_ptr<GatewayCore> core,
                     RequestRouter::Admission admission);
    ~SocketConnection() override;

    void finish() override;
    void textsWait() override;
    void end(const session::CloseReason& reason) override;

private:
    /// What the page is to be sent even when no text waits for it: an acknowledgement when the
    /// timer is over, one now, or an answer to its question.
    enum class Owed { Nothing, Soon, Now, Answer };

    void onOpened() override;
    void onPiece(bool isLast) override;
    void onWritten() override;
    void onFault(const session::CloseReason& reason) override;
    void onUseless(std::size_t frames, const session::CloseReason& reason) override;
    void onCut(bool isLeaving) override;

    void open();
    void onFrame();
    void work();
    void pause(std::size_t events);
    void goOn();

    void flushSoon();
    void flush();
    bool prepareFrame();
    void acknowledgeSoon();

    const RequestRouter::Admission m_admission;
    std::shared_ptr<session::Session> m_session;  // until it ends, or the page is gone
    std::optional<session::FrameReceiver> m_receiver;
    std::optional<session::CloseReason> m_endReason;

    session::Throttle m_throttle;
    Timer m_pauseTimer;
    Timer m_acknowledgeTimer;

    std::string m_greeting;
    std::string m_header;
    std::shared_ptr<const session::Chunk> m_chunk;
    Owed m_owed = Owed::Nothing;
    bool m_isFlushPosted = false;
};

}  // namespace DOVA::gateway
