#pragma once

#include <algorithm>
#include <memory>
#include <string>

#include "GatewayFixture.h"
#include "TestPage.h"

namespace DOVA::gateway {

/// A gateway with pages that open and resume sessions.
class PageFixture : public GatewayFixture {
protected:
    std::unique_ptr<TestPage> newPage() {
        return std::make_unique<TestPage>(
            loop, [this](const auto& happened) { await(happened); }, gateway->port());
    }

    std::unique_ptr<TestPage> openPage(const std::string& client, const std::string& more = "") {
        auto page = newPage();
        EXPECT_EQ(page->open(std::string("token=") + kToken + "&client=" + client + more), 101u);
        return page;
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

    void awaitHeard(const std::string& text) {
        await([&] { return std::find(heard.begin(), heard.end(), text) != heard.end(); });
    }

    /// The session of "me" has ended, and the program knows.
    void expectSessionIsOver() {
        awaitHeard(R"(/dova2/web={"clientDestroyed":"me"})");
        const auto back = openPage("me", "&received=0");
        EXPECT_EQ(back->read(),
                  R"({"session":"lost","reason":"the session is unknown or expired"})");
        EXPECT_EQ(back->closeCode(), 4000u);
    }
};

}  // namespace DOVA::gateway
