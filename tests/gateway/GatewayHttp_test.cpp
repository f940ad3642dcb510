#include <algorithm>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/write.hpp>
#include <memory>
#include <string>
#include <vector>

#include "GatewayFixture.h"

namespace DOVA::gateway {
namespace {

using namespace std::chrono_literals;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

/// A browser's plain connection: sends bytes, collects what comes back.
class RawClient {
public:
    RawClient(boost::asio::io_context& loop, std::uint16_t port, const std::string& bytes)
        : m_socket(loop) {
        m_socket.connect({boost::asio::ip::make_address("127.0.0.1"), port});
        boost::system::error_code ignored;
        boost::asio::write(m_socket, boost::asio::buffer(bytes), ignored);
        read();
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
                got->over = error.failed();
                if (!error) {
                    read();
                }
            });
    }

    boost::asio::ip::tcp::socket m_socket;
    const std::shared_ptr<Got> m_got = std::make_shared<Got>();
};

class GatewayHttpTest : public GatewayFixture {
protected:
    std::string request(const std::string& line, const std::string& more = "") const {
        return line + " HTTP/1.1\r\nHost: 127.0.0.1:" + std::to_string(gateway->port()) + "\r\n" +
               more + "\r\n";
    }

    std::string handshake(const std::string& query, const std::string& more) const {
        return request("GET /socket?token=" + options.token + "&client=me" + query,
                       "Origin: http://127.0.0.1:" + std::to_string(gateway->port()) +
                           "\r\nConnection: Upgrade\r\nUpgrade: websocket\r\n"
                           "Sec-WebSocket-Version: 13\r\n"
                           "Sec-WebSocket-Protocol: dova.gateway.1\r\n" +
                           more);
    }

    std::unique_ptr<RawClient> send(const std::string& bytes) {
        return std::make_unique<RawClient>(loop, gateway->port(), bytes);
    }

    /// The whole answer to these bytes, once the gateway has ended the connection.
    std::string answerTo(const std::string& bytes) {
        const auto client = send(bytes);
        await([&] { return client->isOver(); });
        return client->received();
    }

    const std::string key = "Sec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\n";
    const std::string close = "Connection: close\r\n";
};

TEST_F(GatewayHttpTest, servesThePageOnOneConnection) {
    start();
    const auto client = send(request("GET /") + request("GET /app.js"));
    await([&] { return client->received().find("\r\n\r\nscript") != std::string::npos; });
    EXPECT_THAT(client->received(), HasSubstr("\r\n\r\n<!doctype html>HTTP/1.1 200 OK\r\n"));
    EXPECT_FALSE(client->isOver());
    const std::string head = answerTo(request("HEAD /app.js", close));
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
          std::pair{get + "Transfer-Encoding: other\r\n\r\n", "HTTP/1.1 400 "},
          std::pair{get + "\r\n", "HTTP/1.1 403 "}, std::pair{handshake("", ""), "HTTP/1.1 400 "},
          std::pair{handshake("", key) + "data behind it", "HTTP/1.1 400 "}}) {
        EXPECT_THAT(answerTo(bytes), AllOf(StartsWith(answer), HasSubstr("nosniff")))
            << bytes.substr(0, 60);
    }
}

/// With the token in a header, which proxies do not log. The answer says which sub-protocol is
/// meant and has the cookie for icons.
TEST_F(GatewayHttpTest, aPageComesInByHeaderAndAsksForIconsByCookie) {
    pageFiles.write("images/save.png", "image");
    start();
    const std::string port = std::to_string(gateway->port());
    const auto page = send(
        request("GET /socket?client=me",
                "Origin: http://127.0.0.1:" + port +
                    "\r\nConnection: Upgrade\r\nUpgrade: websocket\r\nSec-WebSocket-Version: 13\r\n"
                    "Sec-WebSocket-Protocol: dova.gateway.1, token." +
                    options.token + "\r\n" + key));
    await([&] { return page->received().find("received\":0}") != std::string::npos; });
    EXPECT_THAT(page->received(), HasSubstr("Sec-WebSocket-Protocol: dova.gateway.1\r\n"));
    const std::string name = "Set-Cookie: dova-icon-" + port + "=";
    const std::size_t cookie = page->received().find(name);
    ASSERT_NE(cookie, std::string::npos) << page->received();
    const std::string shown = page->received().substr(cookie + 4, name.size() - 4 + 40);
    EXPECT_THAT(answerTo(request("GET /icon/save.png", close + shown + "\r\n")),
                EndsWith("\r\n\r\nimage"));
    EXPECT_THAT(page->received(), testing::Not(HasSubstr(options.token)));
}

/// The log names the reason, who was refused and nothing secret; once, however often it is tried.
TEST_F(GatewayHttpTest, aRefusalStandsInTheLog) {
    start();
    const std::string host = "Host 127.0.0.1:" + std::to_string(gateway->port());
    const std::string wrong = "/socket?token=wrong" + options.token + "&client=me";
    const std::string own = "Origin: http://127.0.0.1:" + std::to_string(gateway->port()) + "\r\n";
    testing::internal::CaptureStderr();
    for (int round = 0; round < 2; ++round) {
        answerTo(request("GET " + wrong, own));
        answerTo(request("GET /missing"));
        answerTo(request("GET /socket?token=" + options.token, "Origin: http://evil\xff[31m\r\n"));
    }
    answerTo("GET / HTTP/1.1\r\nHost: pad.example\r\n\r\n");
    const std::string log = testing::internal::GetCapturedStderr();
    for (const std::string& line :
         {"401: missing or wrong token (" + host + ", " + own.substr(0, own.find(':')),
          "403: this origin is not allowed (" + host + ", Origin http://evil?[31m)",
          std::string("403: this host name is not allowed (Host pad.example, Origin none)")}) {
        EXPECT_THAT(log, HasSubstr("refused a page with " + line));
    }
    EXPECT_EQ(std::count(log.begin(), log.end(), '\n'), 3) << log;
    EXPECT_THAT(log, testing::Not(HasSubstr(options.token)));
}

TEST_F(GatewayHttpTest, whatNeverEndsIsCut) {
    options.limits.httpHeaderTime = options.limits.handshakeTime = 50ms;
    start();
    EXPECT_EQ(answerTo(""), "");
    EXPECT_EQ(answerTo("GET / HTTP/1.1\r\nHost: 127"), "");
    EXPECT_THAT(answerTo(request("GET /app.js")), EndsWith("script")) << "then idle";
    EXPECT_THAT(answerTo(handshake("&received=0", key)), EndsWith("session lost"))
        << "and the goodbye is not returned";
}

/// 80 connections that said nothing shut the door for 39 seconds.
TEST_F(GatewayHttpTest, whoShowsNoTokenMakesRoomForTheNext) {
    options.limits.strangers = 3;
    options.limits.httpHeaderTime = 60s;
    start();
    const auto page = openFresh("me");
    std::vector<std::unique_ptr<RawClient>> crowd(80);
    for (auto& stranger : crowd) {
        stranger = send("GET /app.js HTTP/1.1\r\n");
    }
    await([&] { return crowd[76]->isOver(); });
    EXPECT_FALSE(crowd[77]->isOver());
    EXPECT_THAT(answerTo(request("GET /app.js", close)), EndsWith("script"));
    EXPECT_TRUE(crowd[77]->isOver()) << "the oldest";
    page->send("1,0");
    EXPECT_EQ(page->read(), "1,0") << "whoever has shown it stays";
}

TEST_F(GatewayHttpTest, asManyPagesAsMayBeAndNoMore) {
    options.limits.connections = 2;
    start();
    const auto first = openFresh("one"), second = openFresh("two");
    const std::string origin = "http://127.0.0.1:" + std::to_string(gateway->port());
    EXPECT_THAT(answerTo(handshake("", key)), StartsWith("HTTP/1.1 503 "));
    EXPECT_THAT(
        answerTo(request("GET /socket?client=me&token=" + options.token + "&origin=" + origin)),
        StartsWith("HTTP/1.1 503 "))
        << "a page that asks why hears the reason";
    EXPECT_THAT(answerTo(request("GET /app.js", close)), EndsWith("script"));
}

TEST_F(GatewayHttpTest, stopWaitsForAnswersButNotForIdleBrowsers) {
    options.limits.stopTime = options.limits.httpHeaderTime = 60s;
    pageFiles.write("large.txt", std::string(8 << 20, 'x'));
    start();
    const auto idle = send(request("GET /app.js"));
    await([&] { return !idle->received().empty(); });
    const auto loading = send(request("GET /large.txt"));
    await([&] { return !loading->received().empty(); });
    gateway->stop();
    await([&] { return idle->isOver() && loading->isOver(); });
    EXPECT_GT(loading->received().size(), 8u << 20);
}

/// With handlers of a connection still pending.
TEST_F(GatewayHttpTest, theLoopMayEndFirstOnceTheGatewayIsGone) {
    auto other = std::make_unique<boost::asio::io_context>();
    auto onOther = std::make_unique<Gateway>(*other, options);
    onOther->start();
    const RawClient client(loop, onOther->port(), "");
    other->poll();
    onOther.reset();
    other.reset();
}

}  // namespace
}  // namespace DOVA::gateway
