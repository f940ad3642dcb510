#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "Account.h"
#include "Address.h"
#include "Connection.h"
#include "Greeting.h"
#include "Line.h"
#include "PageSession.h"
#include "TargetWindow.h"
#include "Watch.h"

namespace DOVA::load {

/// What a page is to do.
struct PageTask {
    /// Actions to do; with 0 it opens, resumes and acknowledges, whatever the program shows.
    std::uint64_t actions = 0;
    /// Between two of them; 0: the next one as soon as one is answered.
    Clock::duration interval{};
};

/// A page as a browser opens it, without the browser: keeps one session alive over as many
/// connections as it takes, as the page's own link does, and acts.
class Page : Connection::Listener, Watch::Watched {
public:
    /// What it tells whoever runs it.
    struct Events {
        /// Once: it shows the window, or was greeted where it is not to act.
        std::function<void()> opened;
        /// There may be nothing left to wait for.
        std::function<void()> settled;
        /// It was not let in, and never will be.
        std::function<void()> barred;
    };

    Page(Loop& loop, const Address& address, std::unique_ptr<Line> line, PageTask task,
         std::string name, Events events, Tally& tally);

    void open();
    Line& line() { return *m_line; }
    /// A fault befell it that may cost the connection.
    void expectLoss() { m_mayBreak = true; }
    /// Its program is killed; whoever resumes then finds nothing.
    void programKilled() { m_mayBeLost = true; }
    /// A process that it needs stood still, or was away, until then.
    void processContinued(Clock::time_point since) { m_processSince = since; }

    bool hasOpened() const { return m_hasOpened; }
    /// It has done everything, and everything was answered; or it is not to act any more.
    bool isSettled() const;
    /// Ends the count, and leaves.
    void leave();

private:
    void message(std::string_view text) override;
    void closed(std::uint16_t code) override;
    void refused(unsigned status) override;
    std::uint64_t awaited() const override;
    void ask() override;
    void hangs() override;

    void connect();
    void dropConnection();
    void tryAgain();
    void greeted(std::string_view text);
    bool resumes(const Greeting& greeting);
    void begun();
    void resumed();
    void frame(std::string_view text);
    void record(std::string_view channel, std::string_view text);
    void window(std::string_view text);
    void over();
    void gaveUp();
    void sessionOver();
    void showsIt();

    void actSoon();
    void act();
    void say(const std::string& channel, const std::string& text);
    void flush();
    void send(std::string frame);
    void acknowledgeSoon();

    const Address& m_address;
    const std::unique_ptr<Line> m_line;
    const PageTask m_task;
    const std::string m_name;
    const Events m_events;
    Tally& m_tally;

    std::unique_ptr<Connection> m_connection;
    Watch m_watch;
    Timer m_retryTimer;
    Timer m_acknowledgeTimer;
    Timer m_actionTimer;

    std::string m_client;
    std::unique_ptr<PageSession> m_session;
    std::unique_ptr<Account> m_account;
    TargetWindow m_window;
    std::uint64_t m_attempts = 0;
    std::uint64_t m_sessions = 0;
    std::uint64_t m_acted = 0;
    unsigned m_failures = 0;

    Clock::time_point m_openedAt;
    Clock::time_point m_brokeAt;
    Clock::time_point m_processSince;
    Clock::time_point m_nextAction;
    bool m_isGreeted = false;
    bool m_isEstablished = false;
    bool m_isAcknowledging = false;
    bool m_hasOpened = false;
    bool m_hasGivenUp = false;
    bool m_mayBreak = false;
    bool m_mayBeLost = false;
};

}  // namespace DOVA::load
