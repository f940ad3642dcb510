#include "VisitorProgram.h"

#include <algorithm>
#include <system_error>
#include <utility>

#include "CloseReasons.h"
#include "log/Log.h"

namespace DOVA::serve {

namespace {

/// After a program that failed the next one waits, each time twice as long.
constexpr std::chrono::milliseconds s_firstPause{500};
constexpr std::chrono::milliseconds s_longestPause{30000};
/// A close reason has room for 123 bytes (RFC 6455 section 5.5).
constexpr std::size_t s_reasonBytes = 123;

}  // namespace

VisitorProgram::VisitorProgram(boost::asio::io_context& loop, std::string visitor, Command command,
                               const Times& times, std::function<void()> whenEnded)
    : m_loop(loop),
      m_visitor(std::move(visitor)),
      m_command(std::move(command)),
      m_times(times),
      m_whenEnded(std::move(whenEnded)),
      m_startTimer(loop.get_executor()) {}

std::shared_ptr<link::SessionEnd> VisitorProgram::open(const link::Opening& opening,
                                                       link::PageEnd& page) {
    m_usedAt = link::Clock::now();
    if (!isRunning()) {
        start();
    }
    if (!isRunning()) {
        page.end({session::close_reason::s_programEnded.code, m_why.c_str()});
        return {};
    }
    return m_remote->open(opening, page);
}

void VisitorProgram::start() {
    if (link::Clock::now() < m_nextStart) {
        return;
    }
    try {
        m_process = ChildProcess::start(m_loop, m_command, whenEnded());
        log::write(log::Level::Info, "serve",
                   m_visitor + ": process " + std::to_string(m_process->pid()) + " is started");
        m_startedAt = link::Clock::now();
        limitStart();
    } catch (const std::system_error& error) {
        giveUp(error.what());
    }
}

std::function<void(const Ending&)> VisitorProgram::whenEnded() {
    return [weak = weak_from_this()](const Ending& ending) {
        if (const auto self = weak.lock()) {
            self->onEnded(ending);
        }
    };
}

/// Programs look for their service every 200 ms.
void VisitorProgram::expect() {
    constexpr std::chrono::seconds patience{2};
    m_isExpected = true;
    m_startTimer.expires_after(patience);
    m_startTimer.async_wait([weak = weak_from_this()](boost::system::error_code error) {
        const auto self = weak.lock();
        if (self && !error && std::exchange(self->m_isExpected, false) && self->pages() > 0) {
            self->start();
        }
    });
}

void VisitorProgram::adopt(pid_t pid) {
    m_isExpected = false;
    m_process = ChildProcess::adopt(m_loop, pid, whenEnded());
    log::write(log::Level::Info, "serve",
               m_visitor + ": process " + std::to_string(pid) + " is still there");
}

void VisitorProgram::limitStart() {
    m_startTimer.expires_after(m_times.start);
    m_startTimer.async_wait([weak = weak_from_this()](boost::system::error_code error) {
        const auto self = weak.lock();
        if (self && !error && self->m_process && !self->m_remote->isAttached()) {
            log::write(log::Level::Error, "serve",
                       self->m_visitor + ": the program serves no pages; it is ended");
            self->m_process->terminate(self->m_times.stop);
        }
    });
}

std::optional<std::chrono::milliseconds> VisitorProgram::attach(
    std::shared_ptr<link::MessageStream> stream, pid_t pid) {
    m_startTimer.cancel();
    if (!m_process) {
        adopt(pid);
    }
    m_usedAt = link::Clock::now();
    m_pause = {};
    m_remote->attach(std::move(stream));
    const auto startedAt = std::exchange(m_startedAt, std::nullopt);
    return startedAt ? std::optional(std::chrono::duration_cast<std::chrono::milliseconds>(
                           m_usedAt - *startedAt))
                     : std::nullopt;
}

void VisitorProgram::onEnded(const Ending& ending) {
    m_process.reset();
    m_startTimer.cancel();
    const std::string words = ending.lastWords.empty() ? "" : "; it said last: " + ending.lastWords;
    if (ending.isFault) {
        giveUp(ending.how + words);
    } else {
        log::write(log::Level::Info, "serve", m_visitor + ": the program ended" + words);
        m_why = session::close_reason::s_programEnded.text;
    }
    m_remote->end({session::close_reason::s_programEnded.code, m_why.c_str()});
    m_whenEnded();
}

void VisitorProgram::giveUp(const std::string& why) {
    log::write(log::Level::Error, "serve", m_visitor + ": the program ended: " + why);
    m_why = ("program ended: " + why.substr(0, why.find(';'))).substr(0, s_reasonBytes);
    ++m_faults;
    m_pause = std::clamp(m_pause * 2, s_firstPause, s_longestPause);
    m_nextStart = link::Clock::now() + m_pause;
}

void VisitorProgram::endIfIdle(link::Clock::time_point now) {
    if (m_remote->links() > 0) {
        m_usedAt = now;
    } else if (m_process && m_times.idle && now - m_usedAt >= *m_times.idle) {
        log::write(log::Level::Info, "serve", m_visitor + ": nobody was there for long");
        stop();
    }
}

void VisitorProgram::stop() {
    if (m_process) {
        m_process->terminate(m_times.stop);
    }
}

void VisitorProgram::abandon() {
    m_remote->abandon();
}

}  // namespace DOVA::serve
