#include "SocketConnection.h"

#include <algorithm>
#include <boost/asio/post.hpp>
#include <utility>

#include "CloseReasons.h"
#include "GatewayCore.h"

namespace DOVA::gateway {

namespace asio = boost::asio;

SocketConnection::SocketConnection(Socket socket, std::shared_ptr<GatewayCore> core,
                                   RequestRouter::Admission admission)
    : WebSocket(std::move(socket), std::move(core)),
      m_admission(std::move(admission)),
      m_throttle(this->core().options().sessions.limits.upwardRecordsPerSecond,
                 this->core().options().sessions.limits.upwardBurstRecords),
      m_pauseTimer(executor()) {}

SocketConnection::~SocketConnection() {
    cut();
}

void SocketConnection::onOpened() {
    if (m_endCode == 0) {
        auto session = core()
                           .programOf(m_admission.token)
                           ->open({m_admission.clientId, m_admission.attempt, m_admission.received,
                                   m_admission.isReady},
                                  *this);
        m_session = m_endCode == 0 ? std::move(session) : nullptr;
    }
    flush();
    goOn();
}

void SocketConnection::onPiece(bool isLast) {
    if (!m_session) {
        return;  // the closing handshake reads what else comes
    }
    m_throttle.charge(1, Clock::now());
    if (isLast) {
        onFrame();
    }
    goOn();
}

void SocketConnection::onFrame() {
    const auto session = m_session;  // which may end in this
    m_notTaken += text().size();
    session->receive(text());
    discardText();
}

/// Once more than a frame of the longest waits to be worked off, the rest waits in the network.
void SocketConnection::goOn() {
    if (!m_session || m_endCode != 0) {
        return;
    }
    m_waitsForTaking = m_notTaken >= core().options().limits.upwardFrameBytes;
    if (m_waitsForTaking) {
        return;
    }
    m_throttle.isExhausted() ? pause() : read();
}

/// Frames, their pieces and pings cost the page as its texts do.
void SocketConnection::pause() {
    m_pauseTimer.expires_after(m_throttle.waitFor(1));
    m_pauseTimer.async_wait([self = shared_from_this(), this](boost::system::error_code error) {
        if (!error && m_session) {
            read();
        }
    });
}

void SocketConnection::taken(std::size_t bytes) {
    m_notTaken -= std::min(m_notTaken, bytes);
    if (m_waitsForTaking) {
        goOn();
    }
}

/// Such a page would send the same again if it could resume, so its session ends.
void SocketConnection::onFault(const session::CloseReason& reason) {
    if (const auto session = std::exchange(m_session, nullptr)) {
        session->closed(reason);
        end(reason);
    }
}

/// No browser lets a page send pings or empty frames: whoever sends that many is none.
void SocketConnection::onUseless(std::size_t frames, const session::CloseReason& reason) {
    const bool wasOverdrawn = m_throttle.isOverdrawn();
    m_throttle.charge(frames, Clock::now());
    if (m_throttle.isOverdrawn() && !wasOverdrawn) {
        asio::post(executor(), [self = shared_from_this(), this, &reason] { onFault(reason); });
    }
}

void SocketConnection::finish() {
    if (const auto session = m_session) {
        session->finish();
    } else if (m_endCode == 0) {
        end(session::close_reason::s_programEnded);
    }
}

void SocketConnection::send(std::string head, std::shared_ptr<const std::string> records) {
    m_frames.push_back({std::move(head), std::move(records)});
    flush();
}

void SocketConnection::end(const session::CloseReason& reason) {
    m_session.reset();
    m_endCode = reason.code;
    m_endText = reason.text;
    flush();
}

void SocketConnection::flush() {
    if (phase() != Phase::Open || isWriting()) {
        return;
    }
    if (!m_frames.empty()) {
        const Frame& frame = m_frames.front();
        write(frame.head, frame.records ? std::string_view(*frame.records) : std::string_view());
    } else if (m_endCode != 0) {
        close({m_endCode, m_endText.c_str()});
    }
}

void SocketConnection::onWritten() {
    const Frame frame = std::move(m_frames.front());
    m_frames.pop_front();
    if (const auto session = m_session) {
        session->written(frame.head.size() + (frame.records ? frame.records->size() : 0));
    }
    flush();
}

void SocketConnection::onCut(bool isLeaving) {
    m_pauseTimer.cancel();
    if (const auto session = std::exchange(m_session, nullptr)) {
        session->closed(isLeaving ? link::s_pageLeft : link::s_connectionLost);
    }
}

}  // namespace DOVA::gateway
