#include <boost/asio/io_context.hpp>
#include <boost/asio/signal_set.hpp>
#include <csignal>
#include <iostream>

#include "Service.h"
#include "Settings.h"

namespace {

using namespace DOVA;

/// Ends the service in order; a second time at once.
void waitForEnd(boost::asio::signal_set& signals, boost::asio::io_context& loop,
                serve::Service& service) {
    signals.async_wait([&](boost::system::error_code error, int) {
        if (error) {
            return;
        }
        service.stop([&loop] { loop.stop(); });
        signals.async_wait([&loop](boost::system::error_code again, int) {
            if (!again) {
                loop.stop();
            }
        });
    });
}

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
    boost::asio::signal_set ends(loop, SIGINT, SIGTERM), hangUps(loop, SIGHUP);
    serve::Service service(loop, settings);
    service.start();
    waitForEnd(ends, loop, service);
    reloadAtHangUp(hangUps, service);
    std::cout << service.address() << std::endl;
    for (const std::string& name : settings.visitors) {
        for (const auto& visitor : service.visitors().all()) {
            if (visitor.name == name) {
                std::cout << name << ' ' << service.address() << '#' << visitor.token << std::endl;
            }
        }
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
