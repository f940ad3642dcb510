#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <boost/asio/ip/tcp.hpp>
#include <boost/process.hpp>
#include <chrono>
#include <csignal>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "support/JsonRows.h"
#include "support/TemporaryFolder.h"

namespace {

namespace bp = boost::process;

std::string rest(std::istream& stream) {
    return {std::istreambuf_iterator<char>(stream), {}};
}

void awaitText(std::istream& stream, const std::string& text) {
    for (std::string got; got.find(text) == got.npos;
         got.push_back(static_cast<char>(stream.get()))) {
        if (!stream) {
            throw std::runtime_error("\"" + text + "\" never came");
        }
    }
}

/// jsonpad in a folder of its own, beside a.json. What it says is far below what a pipe holds, so
/// reading one stream after the other is safe.
class Jsonpad {
public:
    Jsonpad(const std::vector<std::string>& arguments, const std::string& text) {
        m_folder.write("a.json", text);
        process = bp::child(JSONPAD, bp::args(arguments), bp::start_dir(m_folder / ""),
                            bp::std_out > output, bp::std_err > errors);
    }

    bp::ipstream output;
    bp::ipstream errors;
    bp::child process;

private:
    const DOVA::test::TemporaryFolder m_folder;
};

TEST(JsonpadProcessTest, EndsABadRunWithOneLineThatSaysWhy) {
    for (const QJsonValue row : DOVA::test::readJson(BAD_RUNS).array()) {
        std::vector<std::string> arguments;
        for (const QJsonValue argument : row["arguments"].toArray()) {
            arguments.push_back(DOVA::test::text(argument));
        }
        SCOPED_TRACE(testing::PrintToString(arguments));
        Jsonpad jsonpad(arguments, DOVA::test::text(row["file"], "{}"));
        const std::string errors = rest(jsonpad.errors);
        EXPECT_THAT(errors, testing::StartsWith("jsonpad: "));
        EXPECT_THAT(errors, testing::HasSubstr(DOVA::test::text(row["says"])));
        EXPECT_EQ(errors.find('\n'), errors.size() - 1);
        EXPECT_EQ(rest(jsonpad.output), "");
        jsonpad.process.wait();
        EXPECT_EQ(jsonpad.process.exit_code(), row["exitCode"].toInt());
    }
}

TEST(JsonpadProcessTest, PrintsOneAddressAndServesUntilTheSignal) {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        Jsonpad jsonpad({"a.json"}, "{}");
        std::string address;
        std::getline(jsonpad.output, address);
        EXPECT_THAT(address, testing::MatchesRegex("http://127\\.0\\.0\\.1:[0-9]+/#.+"));
        ::kill(jsonpad.process.id(), signal);
        EXPECT_EQ(rest(jsonpad.output) + rest(jsonpad.errors), "");
        jsonpad.process.wait();
        EXPECT_EQ(jsonpad.process.native_exit_code(), 0) << "killed, or ended with a failure";
    }
}

/// A page that does not return the goodbye holds the end up, but the user need not wait for it.
TEST(JsonpadProcessTest, ASecondSignalEndsItOnTheSpotWhileItSaysGoodbye) {
    Jsonpad jsonpad({"a.json"}, "{}");
    std::string host, token;
    jsonpad.output.ignore(sizeof "http://" - 1);
    std::getline(std::getline(jsonpad.output, host, '/').ignore(), token);
    boost::asio::ip::tcp::iostream page("127.0.0.1", host.substr(host.find(':') + 1));
    page.expires_after(std::chrono::seconds(30));
    page << "GET /socket?client=me&token=" << token << " HTTP/1.1\r\nHost: " << host
         << "\r\nOrigin: http://" << host << "\r\nConnection: Upgrade\r\nUpgrade: websocket\r\n"
         << "Sec-WebSocket-Version: 13\r\nSec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\n"
         << "Sec-WebSocket-Protocol: dova.gateway.1\r\n\r\n"
         << std::flush;
    awaitText(page, "\"session\":\"new\"");
    ::kill(jsonpad.process.id(), SIGINT);
    awaitText(page, "program ended");
    ::kill(jsonpad.process.id(), SIGINT);
    jsonpad.process.wait();
    EXPECT_EQ(jsonpad.process.native_exit_code(), SIGINT) << "it was to die of the signal";
}

TEST(JsonpadProcessTest, TellsItsOptionsWhenAskedAndEnds) {
    for (const auto& [option, answer] : {std::pair("--help", "--allow-remote"),
                                         {"--version", "jsonpad (dova2_web) " DOVA_VERSION}}) {
        Jsonpad jsonpad({option}, "{}");
        EXPECT_THAT(rest(jsonpad.output), testing::HasSubstr(answer));
        jsonpad.process.wait();
        EXPECT_EQ(jsonpad.process.native_exit_code(), 0);
    }
}

/// As nohup starts it.
TEST(JsonpadProcessTest, OutlivesItsTerminalWhenItIsStartedSo) {
    const auto before = std::signal(SIGHUP, SIG_IGN);
    Jsonpad jsonpad({"a.json"}, "{}");
    std::signal(SIGHUP, before);
    std::string address, word, ignored;
    std::getline(jsonpad.output, address);
    std::ifstream status("/proc/" + std::to_string(jsonpad.process.id()) + "/status");
    while (word != "SigIgn:" && status >> word) {
    }
    status >> ignored;
    EXPECT_EQ(std::stoull(ignored, nullptr, 16) & (1u << (SIGHUP - 1)), 1u);
    ::kill(jsonpad.process.id(), SIGTERM);
    jsonpad.process.wait();
}

}  // namespace
