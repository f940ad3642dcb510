#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/write.hpp>
#include <memory>
#include <string>
#include <vector>

#include "GatewayFixture.h"

namespace DOVA::gateway {
namespace {

using testing::EndsWith;
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

    const std::string& received() const { return m_got->received; }
    bool isOver() const { return m_got->over; }

private:
    struct Got {
        char part[4096];
        std::string received;
        bool over = false;
    };

    void read() {
        m_socket.async_read_some(
            boost::asio::buffer(m_got->part),
            [this, got = m_got](boost::system::error_code error, std::size_t bytes) {
                got->received.append(got->part, bytes);
                got->over = static_cast<bool>(error);
                if (!error)
                    read();
            });
    }

    tcp::socket m_socket;
    const std::shared_ptr<Got> m_got = std::make_shared<Got>();
};

class GatewayHttpTest : public GatewayFixture {
protected:
    std::string request(const std::string& line, const std::string& more = "") const {
        return line + " HTTP/1.1\r\nHost: 127.0.0.1:" + std::to_string(gateway->port()) + "\r\n" +
               more + "\r\n";
    }

    /// The whole answer to these bytes, once the gateway has ended the connection.
    std::string answerTo(const std::string& bytes) {
        RawClient client(loop, gateway->port());
        client.send(bytes);
        await([&] { return client.isOver(); });
        return client.received();
    }

    std::string fetch(const std::string& line) {
        return answerTo(request(line, "Connection: close\r\n"));
    }
};

TEST_F(GatewayHttpTest, servesThePageOnOneConnection) {
    start();
    RawClient client(loop, gateway->port());
    client.send(request("GET /") + request("GET /app.js"));
    await([&] { return client.received().find("\r\n\r\nscript") != std::string::npos; });
    EXPECT_THAT(client.received(), HasSubstr("\r\n\r\n<!doctype html>HTTP/1.1 200 OK\r\n"));
    EXPECT_FALSE(client.isOver());
    const std::string head = fetch("HEAD /app.js");
    EXPECT_THAT(head, HasSubstr("Content-Length: 6\r\n"));
    EXPECT_THAT(head, EndsWith("\r\n\r\n"));
}

TEST_F(GatewayHttpTest, nonsenseIsAnsweredAndClosed) {
    start();
    const std::string get = "GET / HTTP/1.1\r\nHost: x\r\n";
    for (const auto& [bytes, answer] :
         {std::pair{std::string("\x16\x03\x01 hello\r\n\r\n"), "HTTP/1.1 400 "},
          std::pair{get + "X: " + std::string(300000, 'x'), "HTTP/1.1 431 "},
          std::pair{get + "Content-Length: 5\r\n\r\nhello", "HTTP/1.1 400 "},
          std::pair{get + "Transfer-Encoding: chunked\r\n\r\n", "HTTP/1.1 400 "},
          std::pair{get + "\r\n", "HTTP/1.1 403 "}})
        EXPECT_THAT(answerTo(bytes), StartsWith(answer)) << bytes.substr(0, 60);
}

TEST_F(GatewayHttpTest, aHeaderThatNeverEndsIsCut) {
    options.limits.httpHeaderTime = std::chrono::milliseconds(50);
    start();
    EXPECT_EQ(answerTo(""), "");
    EXPECT_EQ(answerTo("GET / HTTP/1.1\r\nHost: 127"), "");
    EXPECT_THAT(answerTo(request("GET /app.js")), EndsWith("script")) << "then idle";
}

TEST_F(GatewayHttpTest, dataBehindTheHandshakeIsRefused) {
    start();
    EXPECT_THAT(answerTo(request("GET /socket?token=0123456789abcdef&client=me",
                                 "Origin: http://127.0.0.1:" + std::to_string(gateway->port()) +
                                     "\r\nConnection: Upgrade\r\nUpgrade: websocket\r\n"
                                     "Sec-WebSocket-Version: 13\r\n"
                                     "Sec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\n"
                                     "Sec-WebSocket-Protocol: dova.gateway.1\r\n") +
                         "surplus"),
                StartsWith("HTTP/1.1 400 "));
}

/// Far more connections than are even refused: those wait their turn and none is forgotten.
TEST_F(GatewayHttpTest, aCrowdIsToldSoAndWorkedOff) {
    options.limits.connections = 2;
    options.limits.httpHeaderTime = std::chrono::milliseconds(50);
    start();
    std::vector<std::unique_ptr<RawClient>> crowd;
    for (int i = 0; i < 60; ++i)
        crowd.push_back(std::make_unique<RawClient>(loop, gateway->port()));
    crowd[2]->send(request("GET /app.js"));
    for (const auto& one : crowd)
        await([&] { return one->isOver(); });
    EXPECT_THAT(crowd[2]->received(), StartsWith("HTTP/1.1 503 "));
    EXPECT_THAT(fetch("GET /app.js"), StartsWith("HTTP/1.1 200 "));
}

}  // namespace
}  // namespace DOVA::gateway
