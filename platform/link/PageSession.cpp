#include "PageSession.h"

#include <algorithm>
#include <boost/asio/post.hpp>
#include <utility>

#include "CloseReasons.h"
#include "LocalProgram.h"

namespace DOVA::link {

namespace asio = boost::asio;
using session::CloseReason;
using session::Session;
using session::SessionLimits;
using session::SessionRegistry;

namespace {

/// After so long without an acknowledgement the page is told how far it should have come: were the
/// last frame lost, nothing else would show that.
constexpr std::chrono::seconds s_tailTime{1};

}  // namespace

PageSession::PageSession(std::shared_ptr<LocalProgram> program, PageEnd& page, std::size_t window)
    : m_program(std::move(program)),
      m_page(&page),
      m_window(window),
      m_throttle(m_program->limits().upwardRecordsPerSecond,
                 m_program->limits().upwardBurstRecords),
      m_pauseTimer(m_program->executor()),
      m_acknowledgeTimer(m_program->executor()),
      m_tailTimer(m_program->executor()) {}

void PageSession::open(const Opening& opening) {
    SessionRegistry* const sessions = m_program->sessions();
    if (!sessions) {
        return endLink(session::close_reason::s_programEnded);
    }
    auto answer = sessions->open(opening.page, opening.received, *this, opening.attempt);
    if (!answer.control.empty()) {
        send(std::move(answer.control), nullptr);
    }
    m_session = std::move(answer.session);
    if (!m_session) {
        return endLink(*answer.refusal);
    }
    m_receiver.emplace(*sessions, m_session);
    if (opening.isReady && !opening.received) {
        sessions->announce(*m_session);
    }
    flush();
}

void PageSession::receive(std::string_view frame) {
    if (!m_session || m_session->hasEnded()) {
        return;
    }
    if (m_receiver->pending() > 0) {
        m_waiting.emplace_back(frame);
    } else {
        begin(frame);
    }
}

void PageSession::begin(std::string_view frame) {
    m_frameBytes = frame.size();
    m_throttle.charge(1, Clock::now());
    if (const CloseReason* const reason = m_receiver->begin(frame)) {
        return fault(*reason);
    }
    if (m_receiver->isQuestion()) {
        m_owed = Owed::Answer;
        flush();
    }
    work();
}

void PageSession::work() {
    if (const CloseReason* const reason =
            m_receiver->handle(m_throttle, m_program->limits().upwardBurstRecords, Clock::now())) {
        return fault(*reason);
    }
    if (!m_session) {
        return;
    }
    acknowledgeSoon();
    if (m_receiver->pending() > 0) {
        m_receiver->keepText();
        return pause(m_receiver->pending());
    }
    m_page->taken(m_frameBytes);
}

void PageSession::goOn() {
    while (m_session && m_receiver->pending() == 0 && !m_waiting.empty()) {
        const std::string next = std::move(m_waiting.front());
        m_waiting.pop_front();
        begin(next);
    }
}

/// The page's rate is used up: what is here is worked off as the rate allows, the rest waits in the
/// network until then.
void PageSession::pause(std::size_t events) {
    constexpr std::size_t stepsPerSecond = 20;
    const std::size_t step = m_program->limits().upwardRecordsPerSecond / stepsPerSecond + 1;
    m_pauseTimer.expires_after(m_throttle.waitFor(std::min(step, events)));
    m_pauseTimer.async_wait([self = shared_from_this()](boost::system::error_code error) {
        if (!error && self->m_session) {
            self->work();
            self->goOn();
        }
    });
}

/// What went missing on the way can be said again; whoever says what nobody may would say that
/// again, too, so its session ends.
void PageSession::fault(const CloseReason& reason) {
    if (reason.code != session::close_reason::s_gap.code) {
        m_program->sessions()->end(*m_session, reason);
        return;
    }
    m_program->pageLeft(*m_session, *this, SessionRegistry::Leaving::CutOff);
    end(reason);
}

void PageSession::closed(const CloseReason& reason) {
    const std::shared_ptr<Session> session = m_session;
    detach();
    if (!session || !m_program->sessions()) {
        return;
    }
    if (reason.code == s_pageLeft.code || reason.code == s_connectionLost.code) {
        m_program->pageLeft(*session, *this,
                            reason.code == s_pageLeft.code ? SessionRegistry::Leaving::Away
                                                           : SessionRegistry::Leaving::CutOff);
    } else {
        m_program->sessions()->end(*session, reason);
    }
}

void PageSession::detach() {
    m_page = nullptr;
    m_session.reset();
    m_waiting.clear();
    m_pauseTimer.cancel();
    m_acknowledgeTimer.cancel();
    m_tailTimer.cancel();
}

void PageSession::end(const CloseReason& reason) {
    endLink(reason);
}

void PageSession::endLink(const CloseReason& reason) {
    if (PageEnd* const page = m_page) {
        detach();
        page->end(reason);
    }
}

void PageSession::finish() {
    m_isFinishing = true;
    flushSoon();
}

void PageSession::textsWait() {
    if (m_session && m_session->downward().hasFullChunk()) {
        flush();
    } else if (m_away < m_window) {
        flushSoon();
    }
}

/// At the end of the loop's turn.
void PageSession::flushSoon() {
    if (std::exchange(m_isFlushPosted, true)) {
        return;
    }
    asio::post(m_program->executor(), [self = shared_from_this()] {
        self->m_isFlushPosted = false;
        self->flush();
    });
}

void PageSession::written(std::size_t bytes) {
    m_away -= std::min(m_away, bytes);
    flush();
}

void PageSession::flush() {
    bool isAnythingLeft = true;
    while (m_session && m_away < m_window && isAnythingLeft) {
        isAnythingLeft = sendFrame();
    }
    if (m_isFinishing && !isAnythingLeft) {
        // What the program publishes until it is gone must not come here any more.
        if (m_session) {
            m_program->pageLeft(*m_session, *this, SessionRegistry::Leaving::CutOff);
        }
        endLink(session::close_reason::s_programEnded);
    }
}

bool PageSession::sendFrame() {
    const auto chunk = m_session->downward().next();
    const bool isOwed =
        m_owed == Owed::Answer || (m_owed == Owed::Now && m_session->owesAcknowledgement());
    m_owed = m_owed == Owed::Soon ? Owed::Soon : Owed::Nothing;
    if (!chunk && !isOwed) {
        return false;
    }
    std::string head;
    m_session->writeHeader(head, chunk.get());
    send(std::move(head), chunk ? std::shared_ptr<const std::string>(chunk, &chunk->records)
                                : std::shared_ptr<const std::string>());
    if (chunk) {
        watchTail();
    }
    return true;
}

void PageSession::send(std::string head, std::shared_ptr<const std::string> records) {
    m_away += head.size() + (records ? records->size() : 0);
    m_page->send(std::move(head), std::move(records));
}

/// A timer that runs already is left alone, so that an action which is answered at once costs
/// none; the acknowledgement then comes sooner, never later.
void PageSession::acknowledgeSoon() {
    if (m_owed != Owed::Nothing || !m_session->owesAcknowledgement()) {
        return;
    }
    m_owed = Owed::Soon;
    m_acknowledgeTimer.expires_after(m_program->limits().acknowledgeTime);
    m_acknowledgeTimer.async_wait([weak = weak_from_this()](boost::system::error_code error) {
        const auto self = weak.lock();
        if (self && !error && self->m_owed == Owed::Soon) {
            self->m_owed = Owed::Now;
            self->flush();
        }
    });
}

/// One timer, left running, since one for each frame would cost more than the frame.
void PageSession::watchTail() {
    if (std::exchange(m_watchesTail, true)) {
        return;
    }
    m_tailTimer.expires_after(s_tailTime);
    m_tailTimer.async_wait([weak = weak_from_this(), sent = m_session->downward().nextNumber()](
                               boost::system::error_code error) {
        const auto self = weak.lock();
        if (!self || error || !self->m_session) {
            return;
        }
        self->m_watchesTail = false;
        const session::DownwardBuffer& downward = self->m_session->downward();
        if (downward.acknowledged() + 1 == downward.nextNumber()) {
            return;
        }
        if (downward.nextNumber() == sent) {
            self->m_owed = Owed::Answer;
            self->flush();
        }
        self->watchTail();
    });
}

}  // namespace DOVA::link
