#include <boost/asio/io_context.hpp>
#include <boost/asio/signal_set.hpp>
#include <csignal>
#include <iostream>

#include "Service.h"
#include "Settings.h"
#include "StatusPort.h"

namespace {

using namespace DOVA;

/// Ends the service in order; a second time without waiting for anybody's page; a third time at
/// once.
class EndSignals {
public:
    EndSignals(boost::asio::io_context& loop, serve::Service& service,
               std::chrono::milliseconds drainTime)
        : m_loop(loop), m_service(service), m_drainTime(drainTime) {
        wait();
    }

private:
    void wait() {
        m_signals.async_wait([this](boost::system::error_code error, int) {
            if (!error) {
                hear();
                wait();
            }
        });
    }

    void hear() {
        ++m_heard;
        if (m_heard == 1) {
            m_service.drain(m_drainTime, [this] { m_loop.stop(); });
        } else if (m_heard == 2) {
            m_service.stop([this] { m_loop.stop(); });
        } else {
            m_loop.stop();
        }
    }

    boost::asio::io_context& m_loop;
    serve::Service& m_service;
    const std::chrono::milliseconds m_drainTime;
    boost::asio::signal_set m_signals{m_loop, SIGINT, SIGTERM};
    int m_heard = 0;
};

void reloadAtHangUp(boost::asio::signal_set& signals, serve::Service& service) {
    signals.async_wait([&](boost::system::error_code error, int) {
        if (!error) {
            service.reload();
            reloadAtHangUp(signals, service);
        }
    });
}

int run(const serve::Settings& settings) {
    boost::asio::io_context loop(1);
    boost::asio::signal_set hangUps(loop, SIGHUP);
    serve::Service service(loop, settings);
    service.start();
    serve::StatusPort status(loop,
                             {[&] { return service.hasRoom(); },
                              [&](auto form) { return serve::text(service.metrics(), form); }});
    if (settings.statusPort) {
        status.start(*settings.statusPort);
    }
    EndSignals ends(loop, service, settings.drainTime);
    reloadAtHangUp(hangUps, service);
    std::cout << service.address() << std::endl;
    for (const std::string& name : settings.visitors) {
        for (const auto& visitor : service.visitors().all()) {
            if (visitor.name == name) {
                std::cout << name << ' ' << service.address() << '#' << visitor.token << std::endl;
            }
        }
    }
    if (settings.statusPort) {
        std::cout << "status http://127.0.0.1:" << status.port() << '/' << std::endl;
    }
    loop.run();
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    std::signal(SIGPIPE, SIG_IGN);
    serve::Settings settings;
    if (const auto exitCode = settings.parse(argc, argv)) {
        return *exitCode;
    }
    log::setLevel(settings.logLevel);
    const auto faults = settings.faults();
    for (const std::string& fault : faults) {
        std::cerr << "dova-serve: " + fault + "\n";
    }
    if (settings.isCheck || !faults.empty()) {
        return faults.empty() ? 0 : 2;
    }
    try {
        return run(settings);
    } catch (const std::exception& error) {
        std::cerr << "dova-serve: " + std::string(error.what()) + "\n";
        return 1;
    }
}
