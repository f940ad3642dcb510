#include "gateway/Gateway.h"

#include <system_error>

#include "PageFixture.h"

namespace DOVA::gateway {
namespace {

class GatewayTest : public PageFixture {};

TEST_F(GatewayTest, tellsWhereItIs) {
    options.token.clear();
    Gateway first(loop, options), second(loop, options);
    EXPECT_EQ(first.address(), "");
    first.start();
    EXPECT_NE(first.port(), 0);
    EXPECT_EQ(first.address(),
              "http://127.0.0.1:" + std::to_string(first.port()) + "/#" + first.token());
    second.start();
    EXPECT_GE(first.token().size() * 4, 128u);
    EXPECT_NE(first.token(), second.token());
}

TEST_F(GatewayTest, aTakenPortIsToldAndCanBeHadLater) {
    start();
    options.port = gateway->port();
    Gateway second(loop, options);
    try {
        second.start();
        FAIL() << "two listen on one port";
    } catch (const std::system_error& error) {
        EXPECT_EQ(std::string(error.what()),
                  "cannot listen on 127.0.0.1:" + std::to_string(options.port) +
                      ": Address already in use");
    }
    gateway.reset();
    start();
    EXPECT_EQ(openFresh("me")->subProtocol(), "dova.gateway.1");
}

TEST_F(GatewayTest, stopSendsWhatWaitsAndSaysGoodbye) {
    start();
    const auto first = openFresh("first"), second = openFresh("second");
    publish("/dova2/web/first/1", "last words");
    int calls = 0;
    gateway->stop([&] { ++calls; });
    gateway->stop([&] { ++calls; });
    EXPECT_EQ(first->read(), "1,0\x1e./1\x1flast words");
    EXPECT_EQ(first->closeCode(), 1001u);
    EXPECT_EQ(second->closeCode(), 1001u);
    await([&] { return calls == 2; });
    EXPECT_THROW(newPage()->open("token=0123456789abcdef&client=late"), std::exception);
    gateway->stop([&] { ++calls; });
    Gateway neverStarted(loop, options);
    neverStarted.stop([&] { ++calls; });
    await([&] { return calls == 4; });
}

TEST_F(GatewayTest, stopIsBoundedByPagesThatDoNotAnswer) {
    options.limits.stopTime = std::chrono::milliseconds(100);
    start();
    const auto silent = openFresh("silent");
    publish("/dova2/web/silent", std::string(32 << 20, 'x'));
    bus->deliver();
    bool stopped = false;
    const auto before = std::chrono::steady_clock::now();
    gateway->stop([&] { stopped = true; });
    await([&] { return stopped; });
    EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::seconds(2));
}

TEST_F(GatewayTest, mayGoWhileItsConnectionsAreServed) {
    start();
    const auto page = openFresh("me");
    publish("/dova2/web/me", std::string(8 << 20, 'x'));
    bus->deliver();
    loop.poll();
    gateway.reset();
    EXPECT_EQ(page->closeCode(), 0u);
    publish("/dova2/web/me", "nobody there");
    loop.poll();
}

TEST_F(GatewayTest, mayGoInAProgramsHandler) {
    start();
    bus->subscribe(program, "/dova2/web/me/1", [this](auto&, auto&) { gateway.reset(); });
    const auto page = openFresh("me");
    page->send("1,0\x1e./1\x1fgo\x1e./1\x1fonce more");
    EXPECT_EQ(page->closeCode(), 0u);
    EXPECT_EQ(gateway, nullptr);
}

TEST_F(GatewayTest, mayGoWithTheWaiterForItsEnd) {
    start();
    const auto page = openFresh("me");
    gateway->stop([this] { gateway.reset(); });
    EXPECT_EQ(page->closeCode(), 1001u);
    await([this] { return gateway == nullptr; });
}

TEST_F(GatewayTest, theLoopMayEndFirstOnceTheGatewayIsGone) {
    auto other = std::make_unique<boost::asio::io_context>();
    auto onOther = std::make_unique<Gateway>(*other, options);
    onOther->start();
    boost::asio::ip::tcp::socket client(loop);
    client.connect({boost::asio::ip::make_address("127.0.0.1"), onOther->port()});
    other->poll();
    onOther.reset();
    other.reset();  // with handlers of the connection still pending
}

}  // namespace
}  // namespace DOVA::gateway
