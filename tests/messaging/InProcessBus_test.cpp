#include "messaging/InProcessBus.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <condition_variable>
#include <map>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace tdom::messaging {
namespace {

using testing::ElementsAre;

class InProcessBusTest : public testing::Test {
protected:
    MessageBus::Callback recorder() {
        return [this](const std::string& channel, const std::string& text) {
            m_heard.push_back(channel + "=" + text);
        };
    }

    void publish(std::initializer_list<const char*> texts, const std::string& channel = "/a") {
        for (const char* const text : texts) {
            m_bus.publish(m_speaker, channel, text);
        }
    }

    InProcessBus m_bus;
    const MessageBus::ConnectorId m_speaker = m_bus.attach("speaker");
    const MessageBus::ConnectorId m_listener = m_bus.attach("listener");
    std::vector<std::string> m_heard;
};

TEST_F(InProcessBusTest, channelsAreLiteralAndTreesReadSlashesOnly) {
    struct {
        const char *name, *subscribed;
        bool tree;
        const char* published;
        int heard;
    } const rows[] = {{"same", "/a/b", false, "/a/b", 1},
                      {"belowIsAnother", "/a", false, "/a/b", 0},
                      {"hashIsLiteral", "/a/#", false, "/a/b", 0},
                      {"treeHoldsItself", "/a/b", true, "/a/b", 1},
                      {"treeHoldsChildren", "/a/b", true, "/a/b/c", 1},
                      {"treeHoldsGrandchildren", "/a", true, "/a/b/c", 1},
                      {"treeNeedsTheSlash", "/a/b", true, "/a/bc", 0},
                      {"treeHoldsNotItsParent", "/a/b", true, "/a", 0},
                      {"treeWithTrailingSlash", "/a/", true, "/a//b", 1},
                      {"treeHashIsLiteral", "/#", true, "/a", 0},
                      {"emptyTreeHoldsEverySlash", "", true, "/a/b", 1}};
    for (const auto& row : rows) {
        InProcessBus bus;
        int heard = 0;
        const auto subscribe = row.tree ? &MessageBus::subscribeTree : &MessageBus::subscribe;
        (bus.*subscribe)(bus.attach("listener"), row.subscribed, [&](auto&, auto&) { ++heard; });
        bus.publish(bus.attach("speaker"), row.published, "x");
        bus.deliver();
        EXPECT_EQ(heard, row.heard) << row.name;
    }
}

/// One order over all channels; each subscription of others hears a text that came after it, in
/// the order of subscribing; routes are remembered, but not for longer than they are true.
TEST_F(InProcessBusTest, textsComeInOneOrderToThoseWhoListenedBefore) {
    const auto note = [this](const char* name) {
        return [this, name](auto&, auto& text) { m_heard.push_back(name + text); };
    };
    m_bus.subscribe(m_speaker, "/a", note("not to itself "));
    publish({"0"});
    EXPECT_TRUE(m_bus.idle()) << "queued for nobody";
    m_bus.subscribeTree(m_listener, "", note("tree "));
    publish({"1"});
    const auto exact = m_bus.subscribe(m_listener, "/a", note("exact "));
    m_bus.subscribe(m_listener, "/b", note("b "));
    publish({"2"}, "/b");
    publish({"3"});
    m_bus.subscribeTree(m_listener, "", [](auto&, auto&) { FAIL() << "heard an older text"; });
    EXPECT_EQ(m_bus.deliver(), 3u);
    EXPECT_THAT(m_heard, ElementsAre("tree 1", "tree 2", "b 2", "tree 3", "exact 3"));
    m_bus.detach(m_listener);
    m_bus.unsubscribe(exact);
    publish({"4"});
    EXPECT_TRUE(m_bus.idle()) << "queued for those who have ended";
}

TEST_F(InProcessBusTest, callbacksMayEndThemselvesAndOthers) {
    MessageBus::Handle second = 0;
    const auto token = std::make_shared<int>(0);
    m_bus.subscribe(m_listener, "/a", [&, token](auto&, auto& text) {
        m_bus.unsubscribe(second);
        m_bus.detach(m_listener);
        m_heard.push_back(text + std::to_string(token.use_count()));
    });
    second = m_bus.subscribe(m_listener, "/a", [token](auto&, auto&) { FAIL() << "was ended"; });
    m_bus.subscribe(m_bus.attach("other"), "/a", [&](auto&, auto& text) {
        m_heard.push_back(text + std::to_string(token.use_count()));
    });
    publish({"x", "y"});
    m_bus.deliver();
    // Its own copy and the test's; the second's is gone at once, its own when its call is over.
    EXPECT_THAT(m_heard, ElementsAre("x2", "x1", "y1"));
}

/// A module that has unsubscribed may be unloaded: its closures must not linger in the queue. What
/// they hold may call the bus when it goes.
TEST_F(InProcessBusTest, anEndedCallbackIsGoneEvenWhileTextsForItAreQueued) {
    auto token = std::shared_ptr<void>(
        nullptr, [this](void*) { m_heard.emplace_back("gone"), m_bus.idle(); });
    const auto handle = m_bus.subscribe(
        m_listener, "/a", [token](auto&, auto&) { FAIL() << "started after its end"; });
    MessageBus::Handle own = 0;
    own = m_bus.subscribe(m_listener, "/b",
                          [&own, this, held = token](auto&, auto&) { m_bus.unsubscribe(own); });
    token.reset();
    publish({"x"});
    m_bus.unsubscribe(handle);
    m_bus.unsubscribe(handle);
    m_bus.detach(4711);
    testing::internal::CaptureStderr();
    EXPECT_EQ(m_bus.deliver(), 1u);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "") << "an empty callback was called";
    EXPECT_THAT(m_heard, ElementsAre());
    publish({"y"});
    EXPECT_TRUE(m_bus.idle()) << "queued for one that has ended";
    publish({"x"}, "/b");
    m_bus.deliver();
    EXPECT_THAT(m_heard, ElementsAre("gone"));
}

TEST_F(InProcessBusTest, callbacksMaySubscribePublishAndDeliver) {
    m_bus.subscribe(m_listener, "/a", [&](auto&, auto& text) {
        m_heard.push_back(text);
        if (text != "1") {
            return;
        }
        m_bus.subscribe(m_listener, "/b", recorder());
        EXPECT_EQ(m_bus.deliver(), 2u) << "goes on with the rest";
        publish({"answer"}, "/b");
    });
    publish({"1", "2", "3"});
    EXPECT_EQ(m_bus.deliver(), 1u) << "a callback's text waits for the next delivery";
    EXPECT_THAT(m_heard, ElementsAre("1", "2", "3"));
    EXPECT_EQ(m_bus.deliver(), 1u);
    EXPECT_EQ(m_heard.back(), "/b=answer");
}

TEST_F(InProcessBusTest, aThrowingCallbackIsReportedOnceAndStopsNobody) {
    m_bus.subscribe(m_listener, "/a", [](auto&, auto&) { throw std::runtime_error("the reason"); });
    m_bus.subscribe(m_listener, "/a", [](auto&, auto&) { throw 1; });
    m_bus.subscribe(m_listener, "/a", recorder());
    publish({"1", "2"});
    testing::internal::CaptureStderr();
    m_bus.deliver();
    EXPECT_THAT(
        testing::internal::GetCapturedStderr(),
        testing::MatchesRegex(
            ".* error messaging: a callback of channel \"/a\" threw: the reason\n"
            ".* a callback of channel \"/a\" threw: something that is no std::exception\n"));
    EXPECT_THAT(m_heard, ElementsAre("/a=1", "/a=2"));
}

TEST_F(InProcessBusTest, wakesOnceForEachBatch) {
    int wakes = 0;
    m_bus.subscribe(m_listener, "/a", [&](auto&, auto& text) {
        if (text == "ask") {
            publish({"during delivery"});
        }
    });
    publish({"ask"});
    m_bus.setWake([&] { ++wakes; });
    EXPECT_EQ(wakes, 1) << "for the text that was waiting";
    publish({"same batch"});
    EXPECT_EQ(wakes, 1);
    m_bus.deliver();
    EXPECT_EQ(wakes, 2);
    EXPECT_FALSE(m_bus.idle());
}

/// Ten thousand writes in one go must not keep the loop from its timers and signals.
TEST_F(InProcessBusTest, aFloodComesInBatchesInOrderWithAWakeForEach) {
    constexpr std::size_t batch = InProcessBus::largestBatch;
    std::size_t wakes = 0, heard = 0;
    m_bus.setWake([&] { ++wakes; });
    m_bus.subscribe(m_listener, "/a",
                    [&](auto&, auto& text) { EXPECT_EQ(text, std::to_string(heard++)); });
    for (std::size_t i = 0; i < 2 * batch + 1; ++i) {
        m_bus.publish(m_speaker, "/a", std::to_string(i));
    }
    for (const std::size_t expected : {batch, batch, std::size_t{1}}) {
        EXPECT_EQ(wakes--, 1u);
        EXPECT_EQ(m_bus.deliver(), expected);
    }
    EXPECT_EQ(heard, 2 * batch + 1);
    EXPECT_EQ(wakes, 0u) << "woken for nothing";
}

/// Threads publish while the test's own thread delivers, sleeping on the wake-up between, and one
/// more subscribes and ends. More channels than routes are remembered, so that forgetting them is
/// exercised.
TEST_F(InProcessBusTest, otherThreadsKeepTheirOrderAndMaySubscribeMeanwhile) {
    constexpr int threads = 3, texts = 5000;
    std::mutex mutex;
    std::condition_variable woken;
    bool wake = false;
    m_bus.setWake([&] {
        const std::lock_guard<std::mutex> lock(mutex);
        wake = true;
        woken.notify_one();
    });
    std::map<std::string, int> next;
    int total = 0;
    m_bus.subscribeTree(m_listener, "/t", [&](auto& channel, auto& text) {
        EXPECT_EQ(std::stoi(text), next[channel.substr(0, 4)]++);
        ++total;
    });
    std::vector<std::thread> others;
    others.emplace_back([&] {
        for (int i = 0; i < 2000; ++i) {
            m_bus.unsubscribe(m_bus.subscribe(m_listener, "/t/0/1", [](auto&, auto&) {}));
        }
    });
    for (int t = 0; t < threads; ++t) {
        others.emplace_back([&, t] {
            for (int i = 0; i < texts; ++i) {
                publish({std::to_string(i).c_str()},
                        "/t/" + std::to_string(t) + "/" + std::to_string(i));
            }
        });
    }
    while (total < threads * texts) {
        std::unique_lock<std::mutex> lock(mutex);
        woken.wait(lock, [&] { return std::exchange(wake, false); });
        lock.unlock();
        m_bus.deliver();
    }
    for (std::thread& other : others) {
        other.join();
    }
}

}  // namespace
}  // namespace tdom::messaging
