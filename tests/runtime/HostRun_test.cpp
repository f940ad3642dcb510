#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <stdexcept>
#include <system_error>
#include <thread>

#include "HostFixture.h"
#include "runtime/Module.h"
#include "toolkit/DVDialog2.h"
#include "wiro/CallableConnection.h"

namespace DOVA::runtime {

using testing::ElementsAre;

class HostRunTest : public HostFixture {
protected:
    const std::string readyA = R"({"clientReady":"a"})";
};

TEST_F(HostRunTest, CallsTheProgramOncePerNewPage) {
    const std::string readyB = R"({"clientReady":"b"})";
    struct {
        const char* name;
        std::vector<std::string> texts;
        int newPages;
    } const rows[] = {
        {"AgainTheSame", {readyA, readyA}, 1},
        {"BackAndForth", {readyA, readyB, readyA}, 3},
        {"GoneAndBack", {readyA, R"({"clientDestroyed":"a"})", readyA}, 2},
        {"AnotherGone", {readyA, R"({"clientDestroyed":"b"})", readyA}, 1},
        {"ReadyBeforeDestroyed", {readyA, R"({"clientDestroyed":"a","clientReady":1})", readyA}, 1},
        {"Unreadable", {"", "{", "[" + readyA + "]", R"({"clientReady":1})"}, 0},
    };
    for (const auto& row : rows) {
        start();
        int pages = 0;
        host->onPage([&] { ++pages; });
        runThrough(row.texts);
        EXPECT_EQ(pages, row.newPages) << row.name;
        host.reset();
    }
}

TEST_F(HostRunTest, CallsTheProgramInTheLoopAfterTheLibraryAndShutsDownInOrder) {
    start();
    tdom::messaging::ConnectorMessageService program("program");
    tdom::messaging::ConnectorMessageService hearer("hearer");
    hearer.subscribe("/test", [&](const std::string& text) { note(text); });
    hearer.publish("/dova2/web", readyA);
    host->onPage([&] {
        note("page");
        host->quit(7);
        host->quit(8);
    });
    host->onShutdown([&] { program.publish("/test", "farewell"); });
    host->onShutdown([&] { note("shutdown 2"); });
    EXPECT_EQ(host->run(), 7) << "the first code counts";
    const std::weak_ptr<tdom::messaging::MessageBus> bus = tdom::messaging::MessageBus::current();
    host.reset();
    EXPECT_NE(tdom::messaging::MessageBus::current(), bus.lock()) << "the next host has its own";
    EXPECT_THAT(events(), ElementsAre("initialise", "online", "library heard " + readyA, "page",
                                      "shutdown 2", "terminate", "farewell"));
}

/// What onPage makes anew stands for what waited, so it comes first.
TEST_F(HostRunTest, OpensWhatWaitsForAPageAfterTheProgramHasHadItsSay) {
    start();
    DVDialog2 early;
    auto replaced = std::make_unique<DVDialog2>();
    for (DVDialog2* dialog : {replaced.get(), &early}) {
        WIRO::connect(dialog->emitters()->isVisible, [] { return true; });
        WIRO::connect(dialog->emitters()->showAgain,
                      [this, name = dialog == &early ? "early" : "replaced"] { note(name); });
        dialog->show();
    }
    events().clear();
    host->onPage([&] {
        note("page");
        replaced.reset();
        throw std::runtime_error("which does not matter");
    });
    runThrough({readyA});
    EXPECT_THAT(events(), ElementsAre("library heard " + readyA, "page", "early", "terminate"));
}

/// The calls are made, or dropped, on the loop: no thread looks at the owner.
TEST_F(HostRunTest, AThreadThatOutlivesWhatItWorksForReachesNothing) {
    start();
    DVDialog2 dialog;
    auto closed = std::make_unique<DVDialog2>();
    const auto shared = std::make_shared<int>();
    auto dropped = std::make_shared<int>();
    const std::pair<Owner, const char*> owners[] = {{Owner(dialog), "dialog"},
                                                    {Owner(*closed), "closed"},
                                                    {Owner(shared), "shared"},
                                                    {Owner(dropped), "dropped"}};
    host->post([&] {
        closed.reset();
        dropped.reset();
    });
    std::thread worker([&] {
        for (const auto& [owner, name] : owners) {
            host->post(owner, [this, text = name] { note(text); });
        }
        host->post([&] { host->after(std::chrono::milliseconds(0), [&] { host->quit(); }); });
    });
    for (const auto& [owner, name] : owners) {
        host->after(owner, std::chrono::milliseconds(0), [this, text = name] { note(text); });
    }
    events().clear();
    host->run();
    worker.join();
    EXPECT_THAT(events(),
                testing::UnorderedElementsAre("dialog", "dialog", "shared", "shared", "terminate"));
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
        for (int i = 0; i < flood; ++i) {
            program.publish("/test", "x");
        }
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

TEST_F(HostRunTest, CallsForWhatADescriptorHasUntilItIsTakenBack) {
    start();
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    ASSERT_EQ(::write(ends[1], "ab", 2), 2);
    std::string got;
    host->watchInput(ends[0], [&] {
        EXPECT_EQ(::fcntl(ends[0], F_GETFL) & O_NONBLOCK, 0) << "others share the descriptor";
        char letter = 0;
        ASSERT_EQ(::read(ends[0], &letter, 1), 1);
        got += letter;
        if (letter == 'b') {
            host->watchInput(ends[0], {});
            ASSERT_EQ(::write(ends[1], "c", 1), 1);
            host->after(std::chrono::milliseconds(1), [&] { host->quit(); });
        }
    });
    EXPECT_EQ(host->run(), 0);
    EXPECT_EQ(got, "ab");
    ::close(ends[0]);
    ::close(ends[1]);
}

TEST_F(HostRunTest, RefusesADescriptorThatCannotBeWaitedFor) {
    start();
    const int file = ::open(folder.write("file", "text").c_str(), O_RDONLY);
    EXPECT_THROW(host->watchInput(file, [] {}), std::system_error);
    ::close(file);
    EXPECT_THROW(host->watchInput(-1, [] {}), std::system_error);
}

TEST_F(HostRunTest, LeavesTheModuleToTheProgramThatWantsIt) {
    options.loadModule = false;
    options.module = "/nowhere/module.so";
    start();
    EXPECT_THAT(events(), testing::IsEmpty());
    Module module(FAKE_MODULE);
    module.initialise();
    module.goOnline();
    host->onShutdown([&] { module.terminate(); });
    runThrough({});
    EXPECT_THAT(events(), ElementsAre("initialise", "online", "terminate"));
}

TEST_F(HostRunTest, GoesOnAfterCallsThatThrowOrAreEmpty) {
    start();
    host->onPage([] { throw std::runtime_error("page"); });
    host->onShutdown({});
    host->onShutdown([] { throw std::runtime_error("shutdown"); });
    host->post({});
    host->after(std::chrono::milliseconds(0), {});
    host->after(std::chrono::milliseconds(0), [&] {
        host->post([] { throw 42; });
        throw std::runtime_error("timer");
    });
    host->after(std::chrono::milliseconds(1), [&] { host->post([&] { host->quit(); }); });
    tdom::messaging::ConnectorMessageService gateway("test gateway");
    gateway.publish("/dova2/web", readyA);
    testing::internal::CaptureStderr();
    EXPECT_EQ(host->run(), 0);
    const std::string said = testing::internal::GetCapturedStderr();
    for (const char* what : {"page", "timer", "something that is no std::exception", "shutdown"}) {
        EXPECT_THAT(
            said, testing::HasSubstr(std::string(" error runtime: a call of the program threw: ") +
                                     what + "\n"));
    }
    EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 4) << said;
    EXPECT_EQ(events().back(), "terminate");
}

}  // namespace DOVA::runtime
