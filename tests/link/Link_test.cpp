#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <boost/asio/basic_socket_acceptor.hpp>
#include <boost/asio/write.hpp>
#include <memory>
#include <string>
#include <vector>

#include "CloseReasons.h"
#include "LinkServer.h"
#include "RemoteProgram.h"
#include "messaging/InProcessBus.h"

namespace DOVA::link {
namespace {

using namespace std::chrono_literals;
using tdom::messaging::InProcessBus;
using tdom::messaging::MessageBus;
using testing::ElementsAre;
using testing::IsEmpty;
namespace asio = boost::asio;

/// A page's connection that notes what comes for it, and writes it out when it is told to.
struct NotingPage final : PageEnd {
    void send(std::string head, std::shared_ptr<const std::string> records) override {
        got.push_back(head + (records ? *records : ""));
        bytes += got.back().size();
    }
    void taken(std::size_t count) override { takenBytes += count; }
    void end(const session::CloseReason& reason) override {
        ended = std::to_string(reason.code) + " " + reason.text;
        session.reset();
    }

    std::shared_ptr<SessionEnd> session;
    std::vector<std::string> got;
    std::string ended;
    std::size_t bytes = 0, takenBytes = 0;
};

/// A gateway's socket, and a program that comes to it, on one loop.
class LinkTest : public testing::Test {
protected:
    LinkTest() {
        bus->setWake([this] { asio::post(loop, [this] { bus->deliver(); }); });
        bus->subscribeTree(program, "/dova2/web", [this](auto& channel, auto& text) {
            heard.push_back(channel + "=" + text);
        });
        acceptNext();
        server->start([this] { isAbandoned = true; });
        await([&] { return remote->isAttached(); });
    }
    ~LinkTest() override {
        server.reset();
        remote->abandon();
        bus->setWake({});
        MessageBus::install(nullptr);
        ::unlink(path.c_str());
    }

    void acceptNext() {
        acceptor.async_accept([this](boost::system::error_code error, LocalSocket socket) {
            if (!error) {
                stream = std::make_shared<MessageStream>(std::move(socket));
                remote->attach(stream);
                acceptNext();
            }
        });
    }

    template <typename Condition>
    void await(Condition&& happened) {
        const auto end = Clock::now() + 30s;
        while (!happened()) {
            ASSERT_LT(Clock::now(), end) << "waited in vain";
            loop.run_one_for(1s);
        }
    }

    void open(NotingPage& at, const char* id, std::optional<std::uint64_t> received = {}) {
        const std::size_t before = at.got.size();
        at.session = remote->open({id, 0, received, true}, at);
        await([&] { return at.got.size() > before || !at.ended.empty(); });
    }

    asio::io_context loop;
    static session::SessionOptions impatient() {
        session::SessionOptions options;
        options.graceTime = 300ms;
        return options;
    }

    static std::shared_ptr<InProcessBus> installBus() {
        auto installed = std::make_shared<InProcessBus>();
        MessageBus::install(installed);
        return installed;
    }

    const std::shared_ptr<InProcessBus> bus = installBus();
    const MessageBus::ConnectorId program = bus->attach("program");
    std::vector<std::string> heard;
    const std::string path = "/tmp/dova-link-test-" + std::to_string(::getpid());
    asio::basic_socket_acceptor<asio::local::stream_protocol, Executor> acceptor{
        loop, asio::local::stream_protocol::endpoint(path)};
    std::shared_ptr<MessageStream> stream;
    const std::shared_ptr<RemoteProgram> remote = std::make_shared<RemoteProgram>();
    std::shared_ptr<LinkServer> server = std::make_shared<LinkServer>(
        loop, impatient(), path, message::Properties{{hello::s_key, "secret"}});
    NotingPage page, other;
    bool isAbandoned = false;
};

const char* const s_new = R"({"session":"new","received":0})";

TEST_F(LinkTest, framesTravelBothWays) {
    open(page, "me");
    page.session->receive("1,0\x1e./7\x1ftyped");
    await([&] { return heard.size() == 2; });
    EXPECT_THAT(heard, ElementsAre(R"(/dova2/web={"clientReady":"me"})", "/dova2/web/me/7=typed"));
    bus->publish(program, "/dova2/web/me/7", "answer");
    await([&] { return page.got.size() == 2; });
    EXPECT_THAT(page.got, ElementsAre(s_new,
                                      "1,1\x1e./7\x1f"
                                      "answer"));
}

TEST_F(LinkTest, aLineThatBreaksEndsConnectionsAndNoSession) {
    open(page, "me");
    bus->publish(program, "/dova2/web/me", "meanwhile");
    stream->socket().close();
    await([&] { return !page.ended.empty(); });
    EXPECT_EQ(page.ended, "1012 the gateway ends");
    open(other, "me", 0);
    await([&] { return other.got.size() == 2; });
    EXPECT_THAT(other.got,
                ElementsAre(R"({"session":"resumed","received":0})", "1,0\x1e.\x1fmeanwhile"));
}

TEST_F(LinkTest, aProgramWhoseGatewayNeverComesBackIsTold) {
    open(page, "me");
    acceptor.close();
    ::unlink(path.c_str());
    stream->socket().close();
    await([&] { return isAbandoned; });
}

/// 40 MB for a page that reads nothing: the gateway's side is to hold a small part of it.
TEST_F(LinkTest, aPageThatDoesNotReadHoldsUpOnlyItself) {
    open(page, "me");
    for (int count = 0; count < 40; ++count) {
        bus->publish(program, "/dova2/web/me", std::string(1 << 20, 'x'));
    }
    open(other, "you");
    EXPECT_THAT(other.got, ElementsAre(s_new));
    EXPECT_EQ(page.ended, "4002 taken over by another page");
    EXPECT_LT(page.bytes, std::size_t{3} << 20);
}

TEST_F(LinkTest, whatIsWrittenOutMakesRoom) {
    open(page, "me");
    for (int count = 0; count < 40; ++count) {
        bus->publish(program, "/dova2/web/me", std::string(1 << 18, 'x'));
    }
    for (std::size_t written = 0; written < (std::size_t{40} << 18);) {
        await([&] { return page.bytes > written; });
        EXPECT_LT(page.bytes - written, std::size_t{2} << 20);
        page.session->written(page.bytes - written);
        written = page.bytes;
    }
    page.session->receive("1,0\x1e.\x1f" + std::string(900000, 'x'));
    await([&] { return page.takenBytes > 0; });
}

TEST_F(LinkTest, faultsAndGoodbyesReachTheOtherSide) {
    open(page, "me");
    page.session->receive("hello");
    await([&] { return !page.ended.empty(); });
    EXPECT_EQ(page.ended, "4003 malformed frame");
    open(other, "you");
    other.session->closed(session::close_reason::s_binaryFrame);
    await([&] { return heard.back() == R"(/dova2/web={"clientDestroyed":"you"})"; });
}

TEST_F(LinkTest, aProgramThatEndsSendsWhatWaitsAndSaysSo) {
    open(page, "me");
    bus->publish(program, "/dova2/web/me", "last words");
    bus->deliver();
    bool isStopped = false;
    server->stop([&] { isStopped = true; });
    await([&] { return isStopped && !page.ended.empty(); });
    EXPECT_THAT(page.got, ElementsAre(s_new, "1,0\x1e.\x1flast words"));
    EXPECT_EQ(page.ended, "1001 program ended");
}

TEST_F(LinkTest, aProgramThatNeverComesIsWaitedForAndGivenUp) {
    const auto absent = std::make_shared<RemoteProgram>();
    page.session = absent->open({"me", 1, {}, true}, page);
    page.session->receive("1,0");
    absent->end({1001, "it did not start"});
    EXPECT_EQ(page.ended, "1001 it did not start");
    EXPECT_THAT(page.got, IsEmpty());
}

TEST_F(LinkTest, whatIsNoMessageBreaksTheLine) {
    open(page, "me");
    std::string wild = message::head(Message::Kind::Frame, "no such link", 2) + "ok";
    wild += std::string("\xff\xff\xff\xff", 4);
    asio::write(stream->socket(), asio::buffer(wild));
    await([&] { return !page.ended.empty(); });
    EXPECT_EQ(page.ended, "1012 the gateway ends");
    await([&] { return remote->isAttached(); });
}

}  // namespace
}  // namespace DOVA::link
