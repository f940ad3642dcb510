#include <csignal>
#include <stdexcept>
#include <thread>

#include "HostFixture.h"

namespace DOVA::runtime {

using testing::ElementsAre;

class HostRunTest : public HostFixture {};

TEST_F(HostRunTest, ShutsDownInOrderAndDeliversWhatIsPublishedMeanwhile) {
    start();
    tdom::messaging::ConnectorMessageService program("program");
    tdom::messaging::ConnectorMessageService hearer("hearer");
    hearer.subscribe("/test", [&](const std::string& text) { note(text); });
    host->onShutdown([&] { program.publish("/test", "farewell"); });
    host->onShutdown([&] { note("shutdown 2"); });
    host->quit(7);
    host->quit(8);
    EXPECT_EQ(host->run(), 7) << "the first code counts";
    host.reset();
    EXPECT_THAT(events(),
                ElementsAre("initialise", "online", "shutdown 2", "terminate", "farewell"));
}

TEST_F(HostRunTest, EndsTheModuleAlsoWhenItNeverRan) {
    start();
    host->onShutdown([&] { note("shutdown"); });
    host.reset();
    EXPECT_THAT(events(), ElementsAre("initialise", "online", "terminate"));
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

TEST_F(HostRunTest, AFloodOfTextsLetsTimersAndSignalsInAndIsDeliveredAllTheSame) {
    constexpr int flood = 20000;
    start();
    tdom::messaging::ConnectorMessageService program("program");
    tdom::messaging::ConnectorMessageService hearer("hearer");
    int heard = 0;
    hearer.subscribe("/test", [&](const std::string& text) { heard += text == "x"; });
    host->after(std::chrono::milliseconds(0), [&] {
        for (int i = 0; i < flood; ++i)
            program.publish("/test", "x");
        host->after(std::chrono::milliseconds(0), [&] {
            EXPECT_LT(heard, flood) << "the timer waited for the last text";
            std::raise(SIGTERM);
        });
    });
    host->onShutdown([&] { EXPECT_LT(heard, flood) << "the signal waited for the last text"; });
    EXPECT_EQ(host->run(), 0);
    EXPECT_EQ(heard, flood);
}

TEST_F(HostRunTest, RunsWhatOtherThreadsPostInTheirOrderOnItsOwnThread) {
    start();
    int next = 0;
    const auto loop = std::this_thread::get_id();
    std::thread poster([&] {
        for (int number = 0; number < 1000; ++number) {
            host->post([&, number] {
                next += number == next && std::this_thread::get_id() == loop ? 1 : 0;
            });
        }
        host->quit();
    });
    host->run();
    poster.join();
    EXPECT_EQ(next, 1000);
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
        EXPECT_THAT(said, testing::HasSubstr(std::string("program threw: ") + what + "\n"));
    }
    EXPECT_EQ(events().back(), "terminate");
}

TEST_F(HostRunTest, IgnoresEmptyCalls) {
    start();
    host->post({});
    host->after(std::chrono::milliseconds(0), {});
    host->onShutdown({});
    host->onPage({});
    testing::internal::CaptureStderr();
    EXPECT_EQ(runThrough({R"({"clientReady":"a"})"}), 0);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

}  // namespace DOVA::runtime
