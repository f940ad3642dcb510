#pragma once

#include <cstddef>
#include <deque>
#include <memory>
#include <optional>
#include <string>

#include "PageEnd.h"
#include "RequestRouter.h"
#include "SessionEnd.h"
#include "Throttle.h"
#include "WebSocket.h"

namespace DOVA::gateway {

/// One page's connection: carries frames between its WebSocket and its session's end, wherever that
/// is, and holds back a page that sends more than is worked off.
class SocketConnection final : public WebSocket, public link::PageEnd {
public:
    SocketConnection(Socket socket, std::shared_ptr<GatewayCore> core,
                     RequestRouter::Admission admission);
    ~SocketConnection() override;

    void finish() override;

    void send(std::string head, std::shared_ptr<const std::string> records) override;
    void taken(std::size_t bytes) override;
    void end(const session::CloseReason& reason) override;

private:
    struct Frame {
        std::string head;
        std::shared_ptr<const std::string> records;
    };

    void onOpened() override;
    void onPiece(bool isLast) override;
    void onWritten() override;
    void onFault(const session::CloseReason& reason) override;
    void onUseless(std::size_t frames, const session::CloseReason& reason) override;
    void onCut(bool isLeaving) override;

    void onFrame();
    void goOn();
    void pause();
    void flush();

    const RequestRouter::Admission m_admission;
    std::shared_ptr<link::SessionEnd> m_session;  // until either end is gone
    std::deque<Frame> m_frames;                   // the first one may be being written
    std::size_t m_notTaken = 0;
    bool m_waitsForTaking = false;
    std::uint16_t m_endCode = 0;
    std::string m_endText;

    session::Throttle m_throttle;
    Timer m_pauseTimer;
};

}  // namespace DOVA::gateway
