#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/local/stream_protocol.hpp>
#include <boost/asio/read.hpp>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <thread>

#include "HostFixture.h"

namespace DOVA::runtime {

using testing::HasSubstr;

class HostStartTest : public HostFixture {};

TEST_F(HostStartTest, SaysInOneSentenceWhyItDoesNotAndStartsNothing) {
    boost::asio::io_context loop;
    const boost::asio::ip::tcp::acceptor other(loop, {boost::asio::ip::address_v4::loopback(), 0});
    start();
    const std::string address = host->address();
    host.reset();
    options.port = static_cast<std::uint16_t>(std::stoi(address.substr(address.rfind(':') + 1)));
    const HostOptions good = options;
    struct {
        const char* sentence;
        std::function<void()> spoil;
    } const rows[] = {
        {"cannot load the module: ", [&] { options.module = folder / "none.so"; }},
        {"has no entry point KVInitialize_dova2_web", [&] { options.module = OTHER_LIBRARY; }},
        {"has no entry point _ZN4DOVA3web16KorvidOnlineFlag3getEv",
         [&] { options.module = DEAF_MODULE; }},
        {"the page folder ", [&] { options.pageFolder = folder / "none"; }},
        {"must be allowed explicitly", [&] { options.bindAddress = "0.0.0.0"; }},
        {"cannot listen on 127.0.0.1:", [&] { options.port = other.local_endpoint().port(); }},
        {"cannot write the token file ", [&] { options.tokenFile = folder / "none/token"; }},
        {"can be read or changed by others",
         [&] { options.tokenFile = folder.write("open", "0123456789abcdef"); }},
        {"is no host name", [&] { options.hosts = {"pad example"}; }},
        {"is no public address", [&] { options.publicUrl = "pad.example"; }},
        {"is too long for a token",
         [&] { options.tokenFile = folder.write("token", std::string(2000, 'a')); }},
    };
    for (const auto& row : rows) {
        events().clear();
        options = good;
        row.spoil();
        const std::string why = refusal();
        EXPECT_THAT(why, HasSubstr(row.sentence));
        EXPECT_EQ(why.find('\n'), why.npos);
        EXPECT_THAT(events(), testing::IsEmpty());
    }
    options = good;
    EXPECT_NO_THROW(start()) << "the port was not given back";
}

TEST_F(HostStartTest, ThereIsOneAtATimeAndTheRealModuleStartsOnce) {
    start();
    EXPECT_THROW(Host{options}, StartError);
    EXPECT_THAT(events(), testing::ElementsAre("initialise", "online")) << "the first one goes on";
    host.reset();
    EXPECT_EXIT(
        {
            options.module = REAL_MODULE;
            start();
            host.reset();
            std::cerr << refusal();
            std::exit(0);
        },
        testing::ExitedWithCode(0), "has served a host in this process .* does not start again");
}

TEST_F(HostStartTest, TakesTheModuleFromTheEnvironmentUnlessAnOptionNamesOne) {
    ::setenv("DOVA_WEB_MODULE", "/nowhere/module.so", 1);
    EXPECT_NO_THROW(start());
    host.reset();
    options.module.clear();
    EXPECT_THAT(refusal(), HasSubstr("/nowhere/module.so"));
    ::unsetenv("DOVA_WEB_MODULE");
}

TEST_F(HostStartTest, ComesToTheGatewayThatStartedItAndTellsNobodyElseOfIt) {
    boost::asio::io_context loop;
    const std::string path = folder / "gateway";
    ::setenv("DOVA_LINK", path.c_str(), 1);
    EXPECT_EQ(refusal(), "cannot reach the gateway at " + path + ": No such file or directory");
    using boost::asio::local::stream_protocol;
    stream_protocol::acceptor acceptor(loop, path);
    ::setenv("DOVA_LINK", path.c_str(), 1);
    ::setenv("DOVA_LINK_KEY", "who I am", 1);
    start();
    EXPECT_EQ(host->address(), "");
    EXPECT_EQ(::getenv("DOVA_LINK"), nullptr);
    EXPECT_EQ(::getenv("DOVA_LINK_KEY"), nullptr);
    std::thread quitting([this] { host->quit(0); });
    EXPECT_EQ(host->run(), 0);
    quitting.join();
    host.reset();
    stream_protocol::socket socket = acceptor.accept();
    std::string said;
    boost::system::error_code end;
    boost::asio::read(socket, boost::asio::dynamic_buffer(said), end);
    EXPECT_THAT(said, HasSubstr("key\x1fwho I am\x1f"));
}

TEST_F(HostStartTest, KeepsAFreshTokenForTheNextStartAndLeavesAGivenOneAlone) {
    options.tokenFile = folder.write("token", "\n");
    std::string tokens[2];
    for (std::string& token : tokens) {
        start();
        token = host->address().substr(host->address().find('#'));
        host.reset();
    }
    EXPECT_EQ(tokens[0], tokens[1]);
    EXPECT_EQ(std::filesystem::status(options.tokenFile).permissions(),
              std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
    folder.write("token", "  0123456789abcdef\r\n");
    options.publicUrl = "https://pad.example/pad/";
    start();
    EXPECT_EQ(host->address(), "https://pad.example/pad/#0123456789abcdef");
    EXPECT_EQ(folder.read("token"), "  0123456789abcdef\r\n");
}

}  // namespace DOVA::runtime
