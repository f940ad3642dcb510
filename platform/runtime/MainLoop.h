#pragma once

#include <boost/asio/io_context.hpp>
#include <boost/asio/signal_set.hpp>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>

#include "messaging/InProcessBus.h"
#include "runtime/Timer.h"

namespace DOVA::runtime {

/// The one thread of a program: calls that others posted, timers, and whatever else uses the
/// io_context. An exception of a call becomes one line on standard error.
class MainLoop {
public:
    /// SIGINT, SIGTERM and SIGHUP, unless ignored so far, are caught from here on, until run()
    /// returns.
    MainLoop();
    MainLoop(const MainLoop&) = delete;
    MainLoop& operator=(const MainLoop&) = delete;

    boost::asio::io_context& context() { return *m_context; }

    /// Makes the message bus deliver on this loop, batch by batch, so that other work gets its
    /// turn in between.
    void deliver(const std::shared_ptr<tdom::messaging::InProcessBus>& bus);

    void post(std::function<void()> callable);
    Timer after(std::chrono::milliseconds delay, std::function<void()> callable);

    /// Runs until quit() or a signal; gives the exit code.
    int run();
    void quit(int exitCode);

    /// Runs until `done` says so, for `limit` at the most. For after run().
    void runUntil(const std::function<bool()>& done, std::chrono::milliseconds limit);

    /// Makes a call of the program; an empty one does nothing.
    static void call(const std::function<void()>& callable) noexcept;

private:
    void waitForSignal();

    // Shared with whoever wakes the loop from another thread at the last moment.
    std::shared_ptr<boost::asio::io_context> m_context;
    boost::asio::signal_set m_signals;
    std::optional<int> m_exitCode;
};

}  // namespace DOVA::runtime
