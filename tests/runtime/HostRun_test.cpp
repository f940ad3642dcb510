#include <csignal>
#include <numeric>
#include <stdexcept>
#include <thread>

#include "HostFixture.h"

namespace DOVA::runtime {

using testing::ElementsAre;

class HostRunTest : public HostFixture {};

TEST_F(HostRunTest, ShutsDownInOrder) {
    start();
    host->onShutdown([&] { note("shutdown 1"); });
    host->onShutdown([&] { note("shutdown 2"); });
    host->post([&] { host->quit(7); });
    EXPECT_EQ(host->run(), 7);
    note("run is over");
    host.reset();
    EXPECT_THAT(events(), ElementsAre("initialise", "online", "shutdown 1", "shutdown 2",
                                      "terminate", "run is over"));
}

TEST_F(HostRunTest, EndsTheModuleAlsoWhenItNeverRan) {
    start();
    host->onShutdown([&] { note("shutdown"); });
    host.reset();
    EXPECT_THAT(events(), ElementsAre("initialise", "online", "terminate"));
}

TEST_F(HostRunTest, DeliversWhatShutdownCallsPublish) {
    start();
    tdom::messaging::ConnectorMessageService program("program");
    tdom::messaging::ConnectorMessageService hearer("hearer");
    hearer.subscribe("/test", [&](const std::string& text) { note(text); });
    host->onShutdown([&] { program.publish("/test", "farewell"); });
    host->quit();
    host->run();
    EXPECT_THAT(events(), ElementsAre("initialise", "online", "terminate", "farewell"));
}

TEST_F(HostRunTest, EndsAlthoughTwoConnectorsAnswerEachOtherForEver) {
    start();
    tdom::messaging::ConnectorMessageService ping("ping");
    tdom::messaging::ConnectorMessageService pong("pong");
    ping.subscribe("/pong", [&](const std::string& text) { ping.publish("/ping", text); });
    pong.subscribe("/ping", [&](const std::string& text) { pong.publish("/pong", text); });
    ping.publish("/ping", "ball");
    host->post([&] { host->post([&] { host->quit(); }); });
    EXPECT_EQ(host->run(), 0);
}

class SignalTest : public HostFixture, public testing::WithParamInterface<int> {};

TEST_P(SignalTest, EndsTheRunInOrder) {
    start();
    host->onShutdown([&] { note("shutdown"); });
    host->post([] { std::raise(GetParam()); });
    EXPECT_EQ(host->run(), 0);
    EXPECT_THAT(events(), ElementsAre("initialise", "online", "shutdown", "terminate"));
}

INSTANTIATE_TEST_SUITE_P(Host, SignalTest, testing::Values(SIGINT, SIGTERM));

TEST_F(HostRunTest, QuitsWithTheFirstCodeEvenBeforeItRuns) {
    start();
    host->quit(3);
    host->quit(4);
    EXPECT_EQ(host->run(), 3);
}

TEST_F(HostRunTest, RunsWhatOtherThreadsPostInTheirOrderOnItsOwnThread) {
    start();
    std::vector<int> ran;
    std::thread poster([&] {
        for (int number = 0; number < 1000; ++number) {
            host->post([&, number, loop = std::this_thread::get_id()] {
                EXPECT_NE(std::this_thread::get_id(), loop);
                ran.push_back(number);
            });
        }
        host->quit();
    });
    host->run();
    poster.join();
    std::vector<int> expected(1000);
    std::iota(expected.begin(), expected.end(), 0);
    EXPECT_EQ(ran, expected);
}

TEST_F(HostRunTest, GoesOnAfterACallThatThrows) {
    start();
    host->onPage([] { throw std::runtime_error("page"); });
    host->onShutdown([] { throw std::runtime_error("shutdown"); });
    host->after(std::chrono::milliseconds(0), [&] {
        host->post([] { throw 42; });
        throw std::runtime_error("timer");
    });
    host->after(std::chrono::milliseconds(1), [&] { host->post([&] { host->quit(); }); });
    tdom::messaging::ConnectorMessageService gateway("test gateway");
    gateway.publish("/dova2/web", R"({"clientReady":"a"})");
    testing::internal::CaptureStderr();
    EXPECT_EQ(host->run(), 0);
    const std::string said = testing::internal::GetCapturedStderr();
    for (const char* what : {"page", "timer", "something that is no std::exception", "shutdown"}) {
        EXPECT_THAT(said,
                    testing::HasSubstr(std::string("a call of the program threw: ") + what + "\n"));
    }
    EXPECT_THAT(events(), ElementsAre("initialise", "online",
                                      R"(library heard {"clientReady":"a"})", "terminate"));
}

TEST_F(HostRunTest, IgnoresEmptyCalls) {
    start();
    host->post({});
    host->after(std::chrono::milliseconds(0), {});
    host->onShutdown({});
    host->post([&] { host->quit(5); });
    testing::internal::CaptureStderr();
    EXPECT_EQ(host->run(), 5);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

}  // namespace DOVA::runtime
