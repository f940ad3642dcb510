#pragma once

#include <cstddef>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "FrameReceiver.h"
#include "Loop.h"
#include "PageLink.h"
#include "Session.h"
#include "SessionEnd.h"
#include "Throttle.h"

namespace DOVA::link {

class LocalProgram;

/// Joins a page's connection to its session: frames up are worked off as fast as the page may send,
/// texts down leave in frames as they come.
class PageSession final : public SessionEnd,
                          public session::PageLink,
                          public std::enable_shared_from_this<PageSession> {
public:
    PageSession(std::shared_ptr<LocalProgram> program, PageEnd& page, std::size_t window);
    ~PageSession() override = default;

    void open(const Opening& opening);

    void receive(std::string_view frame) override;
    void written(std::size_t bytes) override;
    void closed(const session::CloseReason& reason) override;
    void finish() override;

    void textsWait() override;
    void end(const session::CloseReason& reason) override;

private:
    /// What the page is to be sent even when no text waits for it: an acknowledgement when the
    /// timer is over, one now, or an answer to its question.
    enum class Owed { Nothing, Soon, Now, Answer };

    void begin(std::string_view frame);
    void work();
    void goOn();
    void pause(std::size_t events);
    void endLink(const session::CloseReason& reason);
    void fault(const session::CloseReason& reason);
    void detach();

    void flushSoon();
    void flush();
    bool sendFrame();
    void send(std::string head, std::shared_ptr<const std::string> records);
    void acknowledgeSoon();
    void watchTail();

    const std::shared_ptr<LocalProgram> m_program;
    PageEnd* m_page;  // until either side has ended
    const std::size_t m_window;
    std::shared_ptr<session::Session> m_session;  // until it ends, or the page is gone
    std::optional<session::FrameReceiver> m_receiver;
    std::deque<std::string> m_waiting;  // frames behind the one that is being worked off
    std::size_t m_frameBytes = 0;       // of that one
    std::size_t m_away = 0;             // bytes on their way to the page

    session::Throttle m_throttle;
    Timer m_pauseTimer;
    Timer m_acknowledgeTimer;
    Timer m_tailTimer;
    Owed m_owed = Owed::Nothing;
    bool m_isFlushPosted = false;
    bool m_isFinishing = false;
    bool m_watchesTail = false;
};

}  // namespace DOVA::link
