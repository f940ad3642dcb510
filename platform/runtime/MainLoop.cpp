#include "MainLoop.h"

#include <algorithm>
#include <boost/asio/executor_work_guard.hpp>
#include <boost/asio/post.hpp>
#include <csignal>
#include <exception>
#include <string>
#include <utility>

#include "TimerCall.h"
#include "log/Log.h"

namespace DOVA::runtime {

namespace asio = boost::asio;

namespace {

void report(const char* what) noexcept {
    log::write(log::Level::Error, "runtime", std::string("a call of the program threw: ") + what);
}

// A program that is to outlive its terminal is started so.
bool isHangUpIgnored() {
    struct sigaction present {};
    return sigaction(SIGHUP, nullptr, &present) == 0 && present.sa_handler == SIG_IGN;
}

}  // namespace

MainLoop::MainLoop()
    : m_context(std::make_shared<asio::io_context>()), m_signals(*m_context, SIGINT, SIGTERM) {
    if (!isHangUpIgnored()) {
        m_signals.add(SIGHUP);
    }
    waitForSignal();
}

void MainLoop::waitForSignal() {
    m_signals.async_wait([this](boost::system::error_code error, int) {
        if (!error) {
            quit(0);
        }
    });
}

void MainLoop::deliver(const std::shared_ptr<tdom::messaging::InProcessBus>& bus) {
    const std::weak_ptr<tdom::messaging::InProcessBus> weak = bus;
    bus->setWake([context = m_context, weak] {
        asio::post(*context, [weak] {
            if (const auto delivering = weak.lock()) {
                delivering->deliver();
            }
        });
    });
}

void MainLoop::call(const std::function<void()>& callable) noexcept {
    try {
        if (callable) {
            callable();
        }
    } catch (const std::exception& exception) {
        report(exception.what());
    } catch (...) {
        report("something that is no std::exception");
    }
}

void MainLoop::post(std::function<void()> callable) {
    asio::post(*m_context, [callable = std::move(callable)] { call(callable); });
}

Timer MainLoop::after(std::chrono::milliseconds delay, std::function<void()> callable) {
    // A year is for ever here, and far from the end of the clock.
    const auto wait = std::clamp(delay, std::chrono::milliseconds(0),
                                 std::chrono::milliseconds(std::chrono::hours(24 * 365)));
    const auto due = std::make_shared<Timer::Call>(
        Timer::Call{asio::steady_timer(*m_context, wait), std::move(callable)});
    due->wait.async_wait([due](boost::system::error_code) {
        if (const auto last = std::exchange(due->callable, nullptr)) {
            call(last);
        }
    });
    return Timer(due);
}

int MainLoop::run() {
    const auto work = asio::make_work_guard(*m_context);
    m_context->restart();
    while (!m_exitCode) {
        m_context->run_one();
    }
    // From here on a signal has its default effect again.
    m_signals.clear();
    return *m_exitCode;
}

void MainLoop::quit(int exitCode) {
    asio::post(*m_context, [this, exitCode] {
        if (!m_exitCode) {
            m_exitCode = exitCode;
        }
    });
}

void MainLoop::runUntil(const std::function<bool()>& done, std::chrono::milliseconds limit) {
    const auto work = asio::make_work_guard(*m_context);
    const auto deadline = std::chrono::steady_clock::now() + limit;
    m_context->restart();
    while (!done() && m_context->run_one_until(deadline) > 0) {
    }
}

}  // namespace DOVA::runtime
