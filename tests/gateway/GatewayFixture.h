#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <boost/asio/io_context.hpp>
#include <boost/asio/post.hpp>
#include <boost/asio/steady_timer.hpp>
#include <chrono>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "TemporaryFolder.h"
#include "gateway/Gateway.h"
#include "messaging/InProcessBus.h"

namespace DOVA::gateway {

/// A real gateway on a loop that is also the bus's delivery thread, and a program on the other
/// side of the bus. Everything, the browsers of the tests included, runs on this one loop.
class GatewayFixture : public testing::Test {
protected:
    static constexpr const char* kToken = "0123456789abcdef";

    GatewayFixture() {
        tdom::messaging::MessageBus::install(bus);
        bus->setWake([this] { boost::asio::post(loop, [this] { bus->deliver(); }); });
        bus->subscribeTree(program, "",
                           [this](const std::string& channel, const std::string& text) {
                               heard.push_back(channel + "=" + text);
                           });
        options.pageFolder = pageFiles.path();
        options.token = kToken;
    }

    ~GatewayFixture() override {
        gateway.reset();
        loop.restart();
        loop.poll();
        tdom::messaging::MessageBus::install(nullptr);
    }

    void start() {
        gateway = std::make_unique<Gateway>(loop, options);
        gateway->start();
    }

    /// Runs the loop until something has happened.
    void await(const std::function<bool()>& happened) {
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
        while (!happened()) {
            loop.restart();
            if (loop.run_one_until(deadline) == 0 && std::chrono::steady_clock::now() >= deadline)
                throw std::runtime_error("waited in vain");
        }
    }

    /// Runs the loop for a time that is itself under test.
    void passTime(std::chrono::milliseconds time) {
        bool passed = false;
        boost::asio::steady_timer timer(loop, time);
        timer.async_wait([&](boost::system::error_code) { passed = true; });
        await([&] { return passed; });
    }

    void publish(const std::string& channel, const std::string& text) {
        bus->publish(program, channel, text);
    }

    boost::asio::io_context loop;
    const std::shared_ptr<tdom::messaging::InProcessBus> bus =
        std::make_shared<tdom::messaging::InProcessBus>();
    const tdom::messaging::MessageBus::ConnectorId program = bus->attach("program");
    /// "channel=text" of what the pages said.
    std::vector<std::string> heard;
    const TemporaryFolder pageFiles{{{"index.html", "<!doctype html>"}, {"app.js", "script"}}};
    GatewayOptions options;
    std::unique_ptr<Gateway> gateway;
};

}  // namespace DOVA::gateway
