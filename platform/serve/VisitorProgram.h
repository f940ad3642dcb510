#pragma once

#include <boost/asio/io_context.hpp>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "ChildProcess.h"
#include "RemoteProgram.h"

namespace DOVA::serve {

/// One visitor's program: started when their first page comes, and again when it has ended and a
/// page comes; ended when no page has been there for long.
class VisitorProgram final : public link::Program,
                             public std::enable_shared_from_this<VisitorProgram> {
public:
    struct Times {
        /// Without a page for so long, the program is ended; nothing: never.
        std::optional<std::chrono::milliseconds> idle;
        /// It must have come to the gateway's socket by then.
        std::chrono::milliseconds start{10000};
        /// It must have ended so long after it was asked to.
        std::chrono::milliseconds stop{5000};
    };

    VisitorProgram(boost::asio::io_context& loop, std::string visitor, Command command,
                   const Times& times, std::function<void()> whenEnded);

    const std::string& visitor() const { return m_visitor; }

    /// Whether there is a process, or one is about to end, or is expected.
    bool isRunning() const { return m_process || m_isExpected; }

    /// A process that a former service started is probably there and comes soon; until then no
    /// other is started.
    void expect();

    /// Its process; 0 when there is none.
    pid_t pid() const { return m_process ? m_process->pid() : 0; }
    std::size_t pages() const { return m_remote->links(); }
    const link::RemoteProgram::Counts& passed() const { return m_remote->counts(); }
    std::uint64_t faults() const { return m_faults; }

    /// The process that was started, or expected, has come to the gateway's socket; `pid` is that
    /// of the other side. Answers how long that took, nothing for one that has come before.
    std::optional<std::chrono::milliseconds> attach(std::shared_ptr<link::MessageStream> stream,
                                                    pid_t pid);

    /// A page's connection; starts the program if need be. One that cannot be started, or ended
    /// just now, is told of at once.
    std::shared_ptr<link::SessionEnd> open(const link::Opening& opening,
                                           link::PageEnd& page) override;

    /// Ends the program when it has had no page for long enough.
    void endIfIdle(link::Clock::time_point now);

    /// Asks the program to end; its pages hear of it.
    void stop();
    void abandon() override;

private:
    void start();
    void limitStart();
    void adopt(pid_t pid);
    std::function<void(const Ending&)> whenEnded();
    void onEnded(const Ending& ending);
    void giveUp(const std::string& why);

    boost::asio::io_context& m_loop;
    const std::string m_visitor;
    const Command m_command;
    const Times m_times;
    const std::function<void()> m_whenEnded;
    const std::shared_ptr<link::RemoteProgram> m_remote = std::make_shared<link::RemoteProgram>();
    std::shared_ptr<ChildProcess> m_process;
    link::Timer m_startTimer;
    bool m_isExpected = false;
    std::uint64_t m_faults = 0;
    std::optional<link::Clock::time_point> m_startedAt;
    link::Clock::time_point m_usedAt{};
    link::Clock::time_point m_nextStart{};
    std::chrono::milliseconds m_pause{};
    std::string m_why;  // the last end
};

}  // namespace DOVA::serve
