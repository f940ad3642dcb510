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
      m_pauseTimer(executor()),
      m_acknowledgeTimer(executor()) {}

SocketConnection::~SocketConnection() {
    cut();
}

void SocketConnection::onOpened() {
    if (!m_endReason) {
        open();
    }
    flush();
}

void SocketConnection::open() {
    session::SessionRegistry& sessions = *core().sessions();
    auto opening =
        sessions.open(m_admission.clientId, m_admission.received, *this, m_admission.attempt);
    m_greeting = std::move(opening.control);
    m_session = std::move(opening.session);
    if (!m_session) {
        m_endReason = *opening.refusal;
        return;
    }
    m_receiver.emplace(sessions, m_session);
    if (m_admission.isReady && !m_admission.received) {
        sessions.announce(*m_session);
    }
    read();
}

void SocketConnection::onPiece(bool isLast) {
    if (!m_session) {
        return;  // the closing handshake reads what else comes
    }
    m_throttle.charge(1, Clock::now());
    isLast ? onFrame() : goOn();
}

void SocketConnection::onFrame() {
    if (const session::CloseReason* const reason = m_receiver->begin(text())) {
        return onFault(*reason);
    }
    if (m_receiver->isQuestion()) {
        m_owed = Owed::Answer;
        flush();
    }
    work();
}

void SocketConnection::work() {
    const session::SessionLimits& limits = core().options().sessions.limits;
    if (const session::CloseReason* const reason =
            m_receiver->handle(m_throttle, limits.upwardBurstRecords, Clock::now())) {
        return onFault(*reason);
    }
    if (!m_session) {
        return;
    }
    acknowledgeSoon();
    if (m_receiver->pending() > 0) {
        return pause(m_receiver->pending());
    }
    discardText();
    goOn();
}

void SocketConnection::goOn() {
    if (m_throttle.isExhausted()) {
        pause(1);
    } else {
        read();
    }
}

/// The page's rate is used up: what is read is worked off as the rate allows, the rest waits in
/// the network until then.
void SocketConnection::pause(std::size_t events) {
    constexpr std::size_t stepsPerSecond = 20;
    const std::size_t step =
        core().options().sessions.limits.upwardRecordsPerSecond / stepsPerSecond + 1;
    m_pauseTimer.expires_after(m_throttle.waitFor(std::min(step, events)));
    m_pauseTimer.async_wait([self = shared_from_this(), this](boost::system::error_code error) {
        if (!error && m_session) {
            m_receiver->pending() > 0 ? work() : read();
        }
    });
}

/// Such a page would send the same again if it could resume, so its session ends.
void SocketConnection::onFault(const session::CloseReason& reason) {
    if (const std::shared_ptr<session::Session> session = m_session) {
        core().sessions()->end(*session, reason);
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

void SocketConnection::textsWait() {
    if (m_session && m_session->downward().hasFullChunk()) {
        flush();
    } else if (phase() == Phase::Open && !isWriting()) {
        flushSoon();
    }
}

void SocketConnection::end(const session::CloseReason& reason) {
    m_session.reset();
    m_endReason = reason;
    flush();
}

void SocketConnection::finish() {
    m_endReason = session::close_reason::s_programEnded;
    flushSoon();
}

/// At the end of the loop's turn.
void SocketConnection::flushSoon() {
    if (std::exchange(m_isFlushPosted, true)) {
        return;
    }
    asio::post(executor(), [self = shared_from_this(), this] {
        m_isFlushPosted = false;
        flush();
    });
}

void SocketConnection::flush() {
    if (phase() != Phase::Open || isWriting()) {
        return;
    }
    if (prepareFrame()) {
        write(m_header, m_chunk ? std::string_view(m_chunk->records) : std::string_view());
    } else if (m_endReason) {
        close(*m_endReason);
    }
}

bool SocketConnection::prepareFrame() {
    m_chunk.reset();
    if (!m_greeting.empty()) {
        m_header = std::exchange(m_greeting, {});
        return true;
    }
    if (!m_session) {
        return false;
    }
    m_chunk = m_session->downward().next();
    const bool isOwed =
        m_owed == Owed::Answer || (m_owed == Owed::Now && m_session->owesAcknowledgement());
    m_owed = m_owed == Owed::Soon ? Owed::Soon : Owed::Nothing;
    if (!m_chunk && !isOwed) {
        return false;
    }
    m_session->writeHeader(m_header, m_chunk.get());
    return true;
}

void SocketConnection::onWritten() {
    flush();
}

/// A timer that runs already is left alone, so that an action which is answered at once costs
/// none; the acknowledgement then comes sooner, never later.
void SocketConnection::acknowledgeSoon() {
    if (m_owed != Owed::Nothing || !m_session->owesAcknowledgement()) {
        return;
    }
    m_owed = Owed::Soon;
    m_acknowledgeTimer.expires_after(core().options().sessions.limits.acknowledgeTime);
    m_acknowledgeTimer.async_wait([weak = weak_from_this(), this](boost::system::error_code error) {
        const auto self = weak.lock();
        if (self && !error && m_owed == Owed::Soon) {
            m_owed = Owed::Now;
            flush();
        }
    });
}

void SocketConnection::onCut(bool isLeaving) {
    m_pauseTimer.cancel();
    m_acknowledgeTimer.cancel();
    if (const std::shared_ptr<session::Session> session = std::exchange(m_session, nullptr)) {
        core().pageLeft(*session, *this,
                        isLeaving ? session::SessionRegistry::Leaving::Away
                                  : session::SessionRegistry::Leaving::CutOff);
    }
}

}  // namespace DOVA::gateway
