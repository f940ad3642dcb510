#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/write.hpp>
#include <memory>
#include <string>
#include <vector>

#include "GatewayFixture.h"

namespace DOVA::gateway {
namespace {

using testing::HasSubstr;
using testing::StartsWith;
using tcp = boost::asio::ip::tcp;

/// A browser's plain connection: sends bytes, collects what comes back.
class RawClient {
public:
    RawClient(boost::asio::io_context& loop, std::uint16_t port) : m_socket(loop) {
        m_socket.connect({boost::asio::ip::make_address("127.0.0.1"), port});
        read();
    }

    void send(const std::string& bytes) {
        boost::system::error_code ignored;
        boost::asio::write(m_socket, boost::asio::buffer(bytes), ignored);
    }

    const std::string& received() const { return m_received; }
    bool isOver() const { return m_over; }

private:
    void read() {
        m_socket.async_read_some(boost::asio::buffer(m_part),
                                 [this, alive = std::weak_ptr<int>(m_alive)](
                                     boost::system::error_code error, std::size_t bytes) {
                                     if (alive.expired())
                                         return;
                                     m_received.append(m_part, bytes);
                                     m_over = static_cast<bool>(error);
                                     if (!error)
                                         read();
                                 });
    }

    tcp::socket m_socket;
    char m_part[4096];
    std::string m_received;
    bool m_over = false;
    const std::shared_ptr<int> m_alive = std::make_shared<int>();
};

class GatewayHttpTest : public GatewayFixture {
protected:
    std::string host() const { return "Host: 127.0.0.1:" + std::to_string(gateway->port()); }
    std::string get(const std::string& path) const {
        return "GET " + path + " HTTP/1.1\r\n" + host() + "\r\n\r\n";
    }

    /// The whole answer to these bytes, once the gateway has ended the connection.
    std::string answerTo(const std::string& bytes) {
        RawClient client(loop, gateway->port());
        client.send(bytes);
        await([&] { return client.isOver(); });
        return client.received();
    }
};

TEST_F(GatewayHttpTest, servesThePageOnOneConnection) {
    start();
    RawClient client(loop, gateway->port());
    client.send(get("/") + get("/app.js"));
    await([&] { return client.received().find("\r\n\r\nscript") != std::string::npos; });
    EXPECT_THAT(client.received(), StartsWith("HTTP/1.1 200 OK\r\n"));
    EXPECT_THAT(client.received(), HasSubstr("\r\n\r\n<!doctype html>HTTP/1.1 200 OK\r\n"));
    EXPECT_FALSE(client.isOver());
}

TEST_F(GatewayHttpTest, answersHeadWithoutABody) {
    start();
    const std::string answer =
        answerTo("HEAD /app.js HTTP/1.1\r\nConnection: close\r\n" + host() + "\r\n\r\n");
    EXPECT_THAT(answer, HasSubstr("Content-Length: 6\r\n"));
    EXPECT_THAT(answer, testing::EndsWith("\r\n\r\n"));
}

struct RawRow {
    const char* name;
    std::string bytes;
    const char* answer;
};

class GatewayHttpRefusalTest : public GatewayHttpTest,
                               public testing::WithParamInterface<RawRow> {};

TEST_P(GatewayHttpRefusalTest, isAnsweredAndClosed) {
    start();
    EXPECT_THAT(answerTo(GetParam().bytes), StartsWith(GetParam().answer));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, GatewayHttpRefusalTest,
    testing::Values(
        RawRow{"nonsense", "\x16\x03\x01 hello\r\n\r\n", "HTTP/1.1 400 "},
        RawRow{"foreignHost", "GET / HTTP/1.1\r\nHost: evil.example\r\n\r\n", "HTTP/1.1 403 "},
        RawRow{"largeHeader", "GET / HTTP/1.1\r\nX: " + std::string(20000, 'x') + "\r\n\r\n",
               "HTTP/1.1 431 "},
        RawRow{"longTarget", "GET /" + std::string(20000, 'x') + " HTTP/1.1\r\n\r\n",
               "HTTP/1.1 431 "},
        RawRow{"endlessHeader", "GET / HTTP/1.1\r\nX: " + std::string(300000, 'x'),
               "HTTP/1.1 431 "},
        RawRow{"body", "GET / HTTP/1.1\r\nHost: x\r\nContent-Length: 5\r\n\r\nhello",
               "HTTP/1.1 400 "},
        RawRow{"chunkedBody", "GET / HTTP/1.1\r\nHost: x\r\nTransfer-Encoding: chunked\r\n\r\n",
               "HTTP/1.1 400 "},
        RawRow{"oldVersion", "GET / HTTP/0.9\r\n\r\n", "HTTP/1.1 400 "}),
    [](const auto& row) { return row.param.name; });

TEST_F(GatewayHttpTest, aHeaderThatNeverEndsIsCut) {
    options.limits.httpHeaderTime = std::chrono::milliseconds(50);
    start();
    EXPECT_EQ(answerTo(""), "");
    EXPECT_EQ(answerTo("GET / HTTP/1.1\r\nHost: 127"), "");
}

TEST_F(GatewayHttpTest, anIdleConnectionIsCutAfterItsAnswer) {
    options.limits.httpHeaderTime = std::chrono::milliseconds(50);
    start();
    EXPECT_THAT(answerTo(get("/app.js")), testing::EndsWith("script"));
}

TEST_F(GatewayHttpTest, dataBehindTheHandshakeIsRefused) {
    start();
    EXPECT_THAT(
        answerTo("GET /socket?token=0123456789abcdef&client=me HTTP/1.1\r\n" + host() +
                 "\r\nOrigin: http://127.0.0.1:" + std::to_string(gateway->port()) +
                 "\r\nConnection: Upgrade\r\nUpgrade: websocket\r\n"
                 "Sec-WebSocket-Version: 13\r\nSec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\n"
                 "Sec-WebSocket-Protocol: dova.gateway.1\r\n\r\nsurplus"),
        StartsWith("HTTP/1.1 400 "));
}

TEST_F(GatewayHttpTest, tooManyConnectionsAreToldAndLaterServed) {
    options.limits.connections = 2;
    start();
    std::vector<std::unique_ptr<RawClient>> open;
    for (int i = 0; i < 2; ++i) {
        open.push_back(std::make_unique<RawClient>(loop, gateway->port()));
        open.back()->send(get("/app.js"));
        await([&] { return !open.back()->received().empty(); });
    }
    EXPECT_THAT(answerTo(get("/app.js")), StartsWith("HTTP/1.1 503 "));
    open.clear();
    std::string answer;
    await([&] {
        answer = answerTo("GET /app.js HTTP/1.1\r\nConnection: close\r\n" + host() + "\r\n\r\n");
        return answer.find("503") == std::string::npos;
    });
    EXPECT_THAT(answer, StartsWith("HTTP/1.1 200 "));
}

/// Far more connections than are even refused: they wait their turn and none is forgotten.
TEST_F(GatewayHttpTest, aCrowdIsWorkedOff) {
    options.limits.connections = 2;
    options.limits.httpHeaderTime = std::chrono::milliseconds(50);
    start();
    std::vector<std::unique_ptr<RawClient>> crowd;
    for (int i = 0; i < 60; ++i)
        crowd.push_back(std::make_unique<RawClient>(loop, gateway->port()));
    for (const auto& one : crowd)
        await([&] { return one->isOver(); });
    EXPECT_THAT(answerTo("GET /app.js HTTP/1.1\r\nConnection: close\r\n" + host() + "\r\n\r\n"),
                StartsWith("HTTP/1.1 200 "));
}

}  // namespace
}  // namespace DOVA::gateway
