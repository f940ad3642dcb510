#include "Page.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "ProtocolNames.h"

namespace DOVA::load {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds s_acknowledgeAfter{150};
constexpr milliseconds s_firstWait{200};
constexpr milliseconds s_lastWait{2000};
/// What a watch awaits before the greeting: no record has such a number.
constexpr std::uint64_t s_greeting = ~std::uint64_t{0};

std::uint64_t microsecondsSince(Clock::time_point since) {
    const auto time = std::max(Clock::now() - since, Clock::duration());
    return static_cast<std::uint64_t>(
        std::chrono::duration_cast<std::chrono::microseconds>(time).count());
}

bool endsSession(std::uint16_t code) {
    const auto* const end = std::end(close_code::sessionOver);
    return std::find(std::begin(close_code::sessionOver), end, code) != end;
}

}  // namespace

Page::Page(Loop& loop, const Address& address, std::unique_ptr<Line> line, PageTask task,
           std::string name, Events events, Tally& tally)
    : m_address(address),
      m_line(std::move(line)),
      m_task(task),
      m_name(std::move(name)),
      m_events(std::move(events)),
      m_tally(tally),
      m_watch(loop, *this),
      m_retryTimer(loop.get_executor()),
      m_acknowledgeTimer(loop.get_executor()),
      m_actionTimer(loop.get_executor()) {}

void Page::open() {
    m_openedAt = Clock::now();
    over();
    connect();
}

bool Page::isSettled() const {
    const bool hasDone = m_acted >= m_task.actions && (!m_account || m_account->unanswered() == 0);
    return m_hasGivenUp || (m_hasOpened && m_isGreeted && hasDone);
}

void Page::leave() {
    if (m_account) {
        m_account->close(m_hasGivenUp ? Account::End::Gone : Account::End::Alive);
        m_account.reset();
    }
    m_actionTimer.cancel();
    m_acknowledgeTimer.cancel();
    m_retryTimer.cancel();
    m_watch.end();
    m_isGreeted = false;
    if (m_connection) {
        std::exchange(m_connection, nullptr)->leave();
    }
}

// ---- connections

void Page::connect() {
    dropConnection();
    const Attempt attempt{m_client, ++m_attempts, m_isEstablished, m_session->received()};
    m_connection =
        std::make_unique<Connection>(*m_line, m_address, socketRequest(m_address, attempt),
                                     static_cast<Connection::Listener&>(*this));
    m_watch.begin();
}

void Page::dropConnection() {
    m_watch.end();
    m_retryTimer.cancel();
    m_acknowledgeTimer.cancel();
    m_isAcknowledging = false;
    if (std::exchange(m_isGreeted, false)) {
        m_brokeAt = Clock::now();
    }
    m_connection.reset();
}

void Page::tryAgain() {
    dropConnection();
    const auto wait = std::min(s_lastWait, s_firstWait * (1 << std::min(m_failures++, 10U)));
    m_retryTimer.expires_after(wait);
    m_retryTimer.async_wait([this](boost::system::error_code error) {
        if (!error) {
            connect();
        }
    });
}

void Page::closed(std::uint16_t code) {
    if (code == close_code::duplicated || code == close_code::takenOver ||
        code == close_code::refused) {
        ++(code == close_code::takenOver ? m_tally.sessionsTakenOver : m_tally.sessionsLost);
        gaveUp();
    } else if (endsSession(code)) {
        sessionOver();
    } else {
        tryAgain();
    }
}

/// A page that was in before is let in again when what keeps it out is over.
void Page::refused(unsigned status) {
    ++m_tally.refusals[status];
    tryAgain();
    if (status < 500 && !m_hasOpened) {
        m_events.barred();
    }
}

std::uint64_t Page::awaited() const {
    return m_isGreeted ? m_session->firstAwaited() : s_greeting;
}

void Page::ask() {
    if (m_isGreeted) {
        send(m_session->question());
    }
}

void Page::hangs() {
    ++m_tally.hangs;
    tryAgain();
}

/// A page that was told to stop does so until its user wants otherwise, and here is none.
void Page::gaveUp() {
    dropConnection();
    m_hasGivenUp = true;
    m_actionTimer.cancel();
    m_events.settled();
}

// ---- the session

/// A session begins from nothing, under another name.
void Page::over() {
    if (m_account) {
        m_account->close(Account::End::Gone);
        m_account.reset();
    }
    m_actionTimer.cancel();
    m_isEstablished = false;
    m_client = m_name + "-" + std::to_string(++m_sessions);
    m_session = std::make_unique<PageSession>();
    m_window = {};
}

/// The first time at once; a server that goes on refusing is not asked in a tight loop.
void Page::sessionOver() {
    ++(m_mayBeLost ? m_tally.sessionsKilled : m_tally.sessionsLost);
    over();
    m_failures++ == 0 ? connect() : tryAgain();
}

void Page::message(std::string_view text) {
    m_tally.bytesDown += text.size();
    m_isGreeted ? frame(text) : greeted(text);
}

void Page::greeted(std::string_view text) {
    const Greeting greeting = Greeting::parse(text);
    const bool isFresh = greeting.session == Greeting::Session::Fresh;
    if (isFresh == m_isEstablished || !(isFresh || resumes(greeting))) {
        return sessionOver();
    }
    m_isGreeted = true;
    m_watch.heard();
    isFresh ? begun() : resumed();
    flush();
    m_events.settled();
}

bool Page::resumes(const Greeting& greeting) {
    return greeting.session == Greeting::Session::Resumed && m_session->resume(greeting.received);
}

void Page::begun() {
    m_isEstablished = true;
    m_mayBeLost = false;
    say(names::rootChannel, "{\"" + std::string(keys::clientReady) + "\":\"" + m_client + "\"}");
    if (m_task.actions == 0) {
        showsIt();
    }
}

void Page::resumed() {
    ++m_tally.resumes;
    m_tally.resumesWithoutFault += m_mayBreak ? 0 : 1;
    m_mayBreak = false;
    m_tally.resume.add(
        microsecondsSince(std::max({m_brokeAt, m_line->wayClearSince(), m_processSince})));
}

void Page::frame(std::string_view text) {
    const auto read = Frame::parse(text);
    const auto old = read ? m_session->receive(*read) : std::nullopt;
    if (!old) {
        ++m_tally.gaps;
        return tryAgain();
    }
    m_failures = 0;
    m_watch.heard();
    read->each(*old, [this](std::string_view channel, std::string_view record) {
        this->record(channel, record);
    });
    acknowledgeSoon();
}

void Page::record(std::string_view channel, std::string_view text) {
    if (channel == names::ownChannel) {
        window(text);
    } else if (m_account && channel == m_window.channel()) {
        const std::uint64_t before = m_tally.answered;
        m_window.written(text, [this](const Handled& handled) { m_account->heard(handled); });
        if (m_tally.answered != before) {
            m_task.interval == Clock::duration() ? act() : void();
            m_events.settled();
        }
    }
}

void Page::window(std::string_view text) {
    if (m_task.actions == 0 || m_window.isThere() || !m_window.described(text)) {
        return;
    }
    m_account = std::make_unique<Account>(m_client, m_tally);
    say(m_window.channel(), m_window.ready());
    say(m_window.channel(), m_window.geometry());
    flush();
    showsIt();
    m_nextAction = Clock::now();
    act();
}

void Page::showsIt() {
    if (!std::exchange(m_hasOpened, true)) {
        ++m_tally.pagesOpened;
        m_tally.open.add(microsecondsSince(m_openedAt));
        m_events.opened();
    }
}

// ---- what it does and says

void Page::act() {
    if (m_acted >= m_task.actions) {
        return;
    }
    ++m_acted;
    say(m_window.channel(), m_window.typed(m_account->next()));
    flush();
    if (m_task.interval != Clock::duration()) {
        actSoon();
    }
}

/// A page that is behind its times catches up: its user does not wait.
void Page::actSoon() {
    m_nextAction += m_task.interval;
    m_actionTimer.expires_at(m_nextAction);
    m_actionTimer.async_wait([this](boost::system::error_code error) {
        if (!error) {
            act();
        }
    });
}

void Page::say(const std::string& channel, const std::string& text) {
    m_session->push(Frame::record(channel, text));
}

void Page::flush() {
    if (!m_isGreeted) {
        return;
    }
    for (std::string frame = m_session->takeFrame(); !frame.empty();
         frame = m_session->takeFrame()) {
        send(std::move(frame));
    }
    m_watch.sent();
}

void Page::send(std::string frame) {
    m_tally.bytesUp += frame.size();
    m_connection->send(std::move(frame));
}

/// A timer that runs is left running: it may acknowledge a little early.
void Page::acknowledgeSoon() {
    if (m_isAcknowledging || !m_session->owesAcknowledgement()) {
        return;
    }
    m_isAcknowledging = true;
    m_acknowledgeTimer.expires_after(s_acknowledgeAfter);
    m_acknowledgeTimer.async_wait([this](boost::system::error_code error) {
        if (!error) {
            m_isAcknowledging = false;
            flush();
        }
    });
}

}  // namespace DOVA::load
