#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <boost/asio/io_context.hpp>
#include <boost/asio/post.hpp>
#include <boost/asio/steady_timer.hpp>
#include <chrono>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "TestPage.h"
#include "gateway/Gateway.h"
#include "messaging/InProcessBus.h"
#include "support/TemporaryFolder.h"

namespace DOVA::gateway {

/// A real gateway on a loop that is also the bus's delivery thread, and a program on the other
/// side of the bus. Everything, the browsers of the tests included, runs on this one loop.
class GatewayFixture : public testing::Test {
protected:
    GatewayFixture() {
        tdom::messaging::MessageBus::install(bus);
        bus->setWake([this] { boost::asio::post(loop, [this] { bus->deliver(); }); });
        bus->subscribeTree(program, "",
                           [this](const std::string& channel, const std::string& text) {
                               heard.push_back(channel + "=" + text);
                           });
        pageFiles.write("index.html", "<!doctype html>");
        pageFiles.write("app.js", "script");
        options.pageFolder = pageFiles / "";
        options.token = "0123456789abcdef";
    }

    // NOLINTNEXTLINE(bugprone-exception-escape): a handler that throws here ends the program.
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
            if (loop.run_one_until(deadline) == 0 && std::chrono::steady_clock::now() >= deadline) {
                throw std::runtime_error("waited in vain");
            }
        }
    }

    void awaitHeard(const std::string& text) {
        await([&] { return std::find(heard.begin(), heard.end(), text) != heard.end(); });
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

    std::unique_ptr<TestPage> openPage(const std::string& client, const std::string& more = "") {
        return std::make_unique<TestPage>(
            loop, [this](const auto& happened) { await(happened); }, gateway->port(),
            "token=" + options.token + "&client=" + client + more);
    }

    std::unique_ptr<TestPage> openFresh(const std::string& client) {
        auto page = openPage(client);
        EXPECT_EQ(page->read(), R"({"session":"new","received":0})");
        return page;
    }

    /// A fresh page whose first record was "clientReady".
    std::unique_ptr<TestPage> openReady(const std::string& client) {
        auto page = openFresh(client);
        page->send("1,0\x1e/dova2/web\x1f{\"clientReady\":\"" + client + "\"}");
        awaitHeard("/dova2/web={\"clientReady\":\"" + client + "\"}");
        return page;
    }

    /// "me" comes back with nothing, and the gateway has handled so many records of it.
    std::unique_ptr<TestPage> openAgain(int handled) {
        auto page = openPage("me", "&received=0");
        EXPECT_EQ(page->read(),
                  R"({"session":"resumed","received":)" + std::to_string(handled) + "}");
        return page;
    }

    /// The session of "me" has ended, and the program knows.
    void expectSessionIsOver() {
        awaitHeard(R"(/dova2/web={"clientDestroyed":"me"})");
        const auto back = openPage("me", "&received=0");
        EXPECT_EQ(back->read(),
                  R"({"session":"lost","reason":"the session is unknown or expired"})");
        EXPECT_EQ(back->end(), "4000 session lost");
    }

    boost::asio::io_context loop;
    const std::shared_ptr<tdom::messaging::InProcessBus> bus =
        std::make_shared<tdom::messaging::InProcessBus>();
    const tdom::messaging::MessageBus::ConnectorId program = bus->attach("program");
    /// "channel=text" of what the pages said.
    std::vector<std::string> heard;
    const test::TemporaryFolder pageFiles;
    GatewayOptions options;
    std::unique_ptr<Gateway> gateway;
};

}  // namespace DOVA::gateway
