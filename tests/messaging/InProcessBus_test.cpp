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
using testing::IsEmpty;

class InProcessBusTest : public testing::Test {
protected:
    MessageBus::Callback recorder() {
        return [this](const std::string& channel, const std::string& text) {
            m_heard.push_back(channel + "=" + text);
        };
    }

    InProcessBus m_bus;
    const MessageBus::ConnectorId m_speaker = m_bus.attach("speaker");
    const MessageBus::ConnectorId m_listener = m_bus.attach("listener");
    std::vector<std::string> m_heard;
};

TEST_F(InProcessBusTest, keepsOneOrderOverAllChannels) {
    char next = '0';
    for (const char* const channel : {"/b", "/a"})
        m_bus.subscribe(m_listener, channel, recorder());
    for (const char* const channel : {"/a", "/b", "/a", "/b"})
        m_bus.publish(m_speaker, channel, std::string(1, next++));
    EXPECT_EQ(m_bus.deliver(), 4u);
    EXPECT_THAT(m_heard, ElementsAre("/a=0", "/b=1", "/a=2", "/b=3"));
}

struct ChannelRow {
    const char* name;
    const char* subscribed;
    bool tree;
    const char* published;
    bool heard;
};

TEST(InProcessBusChannelTest, isHeardOrNot) {
    for (const ChannelRow& row : {ChannelRow{"same", "/a/b", false, "/a/b", true},
                                  ChannelRow{"belowIsAnother", "/a", false, "/a/b", false},
                                  ChannelRow{"hashIsLiteral", "/a/#", false, "/a/b", false},
                                  ChannelRow{"treeHoldsItself", "/a/b", true, "/a/b", true},
                                  ChannelRow{"treeHoldsChildren", "/a/b", true, "/a/b/c", true},
                                  ChannelRow{"treeHoldsGrandchildren", "/a", true, "/a/b/c", true},
                                  ChannelRow{"treeNeedsTheSlash", "/a/b", true, "/a/bc", false},
                                  ChannelRow{"treeHoldsNotItsParent", "/a/b", true, "/a", false},
                                  ChannelRow{"treeWithTrailingSlash", "/a/", true, "/a//b", true},
                                  ChannelRow{"treeHashIsLiteral", "/#", true, "/a", false},
                                  ChannelRow{"emptyTreeHoldsEverySlash", "", true, "/a/b", true}}) {
        InProcessBus bus;
        int heard = 0;
        const auto subscribe = row.tree ? &MessageBus::subscribeTree : &MessageBus::subscribe;
        (bus.*subscribe)(bus.attach("listener"), row.subscribed, [&](auto&, auto&) { ++heard; });
        bus.publish(bus.attach("speaker"), row.published, "x");
        bus.deliver();
        EXPECT_EQ(heard, row.heard ? 1 : 0) << row.name;
    }
}

TEST_F(InProcessBusTest, hearsATextOnceForEachSubscriptionInTheirOrder) {
    const auto note = [this](const char* name) {
        return [this, name](auto&, auto&) { m_heard.push_back(name); };
    };
    m_bus.subscribeTree(m_listener, "/a/b", note("tree"));
    m_bus.publish(m_speaker, "/a/b", "x");
    m_bus.subscribe(m_listener, "/a/b", note("exact"));
    m_bus.publish(m_speaker, "/a/b", "x");
    m_bus.subscribeTree(m_listener, "", [](auto&, auto&) { FAIL() << "heard an older text"; });
    m_bus.deliver();
    EXPECT_THAT(m_heard, ElementsAre("tree", "tree", "exact"));
}

TEST_F(InProcessBusTest, queuesNothingThatNobodyElseHears) {
    m_bus.setWake([] { FAIL() << "woken for nobody"; });
    m_bus.subscribe(m_speaker, "/a", recorder());
    m_bus.publish(m_speaker, "/a", "to myself");
    m_bus.publish(m_speaker, "/b", "to nobody");
    EXPECT_TRUE(m_bus.idle());
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
    for (const char* const text : {"x", "y"})
        m_bus.publish(m_speaker, "/a", text);
    m_bus.deliver();
    EXPECT_THAT(m_heard, ElementsAre("x2"));  // its own copy and this one: the other's is gone
    EXPECT_EQ(token.use_count(), 1);
}

/// A module that has unsubscribed may be unloaded: its closures must not linger in the queue.
TEST_F(InProcessBusTest, anEndedCallbackIsGoneEvenWhileTextsForItAreQueued) {
    const auto token = std::make_shared<int>(0);
    const auto handle = m_bus.subscribe(
        m_listener, "/a", [token](auto&, auto&) { FAIL() << "started after its end"; });
    m_bus.publish(m_speaker, "/a", "x");
    m_bus.unsubscribe(handle);
    EXPECT_EQ(token.use_count(), 1);
    m_bus.unsubscribe(handle);
    m_bus.detach(4711);
    testing::internal::CaptureStderr();
    EXPECT_EQ(m_bus.deliver(), 1u);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "") << "an empty callback was called";
}

TEST_F(InProcessBusTest, callbacksMaySubscribeAndPublish) {
    m_bus.subscribe(m_listener, "/a", [&](auto&, auto&) {
        m_bus.subscribe(m_listener, "/b", recorder());
        m_bus.publish(m_speaker, "/b", "answer");
    });
    m_bus.publish(m_speaker, "/a", "x");
    EXPECT_EQ(m_bus.deliver(), 1u);
    EXPECT_THAT(m_heard, IsEmpty()) << "a callback's text waits for the next delivery";
    EXPECT_EQ(m_bus.deliver(), 1u);
    EXPECT_THAT(m_heard, ElementsAre("/b=answer"));
}

TEST_F(InProcessBusTest, nestedDeliveryGoesOnInOrder) {
    m_bus.subscribe(m_listener, "/a", [&](auto&, auto& text) {
        m_heard.push_back(text);
        if (text == "1") {
            EXPECT_EQ(m_bus.deliver(), 2u);
        }
    });
    for (const char* const text : {"1", "2", "3"})
        m_bus.publish(m_speaker, "/a", text);
    EXPECT_EQ(m_bus.deliver(), 1u);
    EXPECT_THAT(m_heard, ElementsAre("1", "2", "3"));
}

TEST_F(InProcessBusTest, aThrowingCallbackIsReportedOnceAndStopsNobody) {
    m_bus.subscribe(m_listener, "/a", [](auto&, auto&) { throw std::runtime_error("the reason"); });
    m_bus.subscribe(m_listener, "/a", [](auto&, auto&) { throw 1; });
    m_bus.subscribe(m_listener, "/a", recorder());
    m_bus.publish(m_speaker, "/a", "1");
    m_bus.publish(m_speaker, "/a", "2");
    testing::internal::CaptureStderr();
    m_bus.deliver();
    EXPECT_EQ(
        testing::internal::GetCapturedStderr(),
        "messaging: a callback of channel \"/a\" threw: the reason\n"
        "messaging: a callback of channel \"/a\" threw: something that is no std::exception\n");
    EXPECT_THAT(m_heard, ElementsAre("/a=1", "/a=2"));
}

TEST_F(InProcessBusTest, wakesOnceForEachBatch) {
    int wakes = 0;
    m_bus.subscribe(m_listener, "/a", [&](auto&, auto& text) {
        if (text == "ask")
            m_bus.publish(m_speaker, "/a", "during delivery");
    });
    m_bus.publish(m_speaker, "/a", "ask");
    m_bus.setWake([&] { ++wakes; });
    m_bus.publish(m_speaker, "/a", "same batch");
    EXPECT_EQ(wakes, 1) << "once for the text that was waiting";
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
    for (std::size_t i = 0; i < 2 * batch + 1; ++i)
        m_bus.publish(m_speaker, "/a", std::to_string(i));
    for (const std::size_t expected : {batch, batch, std::size_t{1}}) {
        EXPECT_EQ(wakes--, 1u);
        EXPECT_EQ(m_bus.deliver(), expected);
    }
    EXPECT_EQ(heard, 2 * batch + 1);
    EXPECT_EQ(wakes, 0u) << "woken for nothing";
}

/// More channels than routes are remembered, so that forgetting them is exercised.
TEST_F(InProcessBusTest, manyChannelsStayApart) {
    int heard = 0;
    m_bus.subscribeTree(m_listener, "/many",
                        [&](auto& channel, auto& text) { heard += channel == "/many/" + text; });
    for (int i = 0; i < 10000; ++i)
        m_bus.publish(m_speaker, "/many/" + std::to_string(i), std::to_string(i));
    while (!m_bus.idle())
        m_bus.deliver();
    EXPECT_EQ(heard, 10000);
}

/// Threads publish while the test's own thread delivers, sleeping on the wake-up between, and one
/// more subscribes and ends.
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
        EXPECT_EQ(std::stoi(text), next[channel]++);
        ++total;
    });
    std::vector<std::thread> others;
    others.emplace_back([&] {
        for (int i = 0; i < 2000; ++i)
            m_bus.unsubscribe(m_bus.subscribe(m_listener, "/t/0", [](auto&, auto&) {}));
    });
    for (int t = 0; t < threads; ++t)
        others.emplace_back([&, t] {
            for (int i = 0; i < texts; ++i)
                m_bus.publish(m_speaker, "/t/" + std::to_string(t), std::to_string(i));
        });
    while (total < threads * texts) {
        std::unique_lock<std::mutex> lock(mutex);
        woken.wait(lock, [&] { return std::exchange(wake, false); });
        lock.unlock();
        m_bus.deliver();
    }
    for (std::thread& other : others)
        other.join();
}

}  // namespace
}  // namespace tdom::messaging
