#include "messaging/ConnectorMessageService.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "messaging/InProcessBus.h"

namespace tdom::messaging {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ConnectorMessageServiceTest : public testing::Test {
protected:
    void SetUp() override { MessageBus::install(m_bus); }
    void TearDown() override { MessageBus::install(nullptr); }

    std::function<void(const std::string&)> recorder() {
        return [this](const std::string& text) { m_heard.push_back(text); };
    }

    const std::shared_ptr<InProcessBus> m_bus = std::make_shared<InProcessBus>();
    std::vector<std::string> m_heard;
};

TEST_F(ConnectorMessageServiceTest, othersHearATextButItsPublisherDoesNot) {
    ConnectorMessageService speaker("speaker");
    ConnectorMessageService listener("listener");
    speaker.subscribe("/a", [](const std::string&) { FAIL() << "heard itself"; });
    listener.subscribe("/a", recorder());
    speaker.publish("/a", "hello");
    m_bus->deliver();
    EXPECT_THAT(m_heard, ElementsAre("hello"));
}

TEST_F(ConnectorMessageServiceTest, destroyingItEndsItsSubscriptionsButNotItsTexts) {
    ConnectorMessageService listener("listener");
    listener.subscribe("/a", recorder());
    {
        ConnectorMessageService leaving("leaving");
        leaving.subscribe("/b", recorder());
        leaving.publish("/a", "farewell");
        listener.publish("/b", "too late");
    }
    m_bus->deliver();
    EXPECT_THAT(m_heard, ElementsAre("farewell"));
}

TEST_F(ConnectorMessageServiceTest, aCallbackMayDestroyItsOwnService) {
    ConnectorMessageService speaker("speaker");
    auto listener = std::make_unique<ConnectorMessageService>("listener");
    const auto captured = std::make_shared<std::string>("alive");
    listener->subscribe("/a", [&, captured](const std::string& text) {
        listener.reset();
        m_heard.push_back(*captured + text);  // the closure must still be there
    });
    speaker.publish("/a", "1");
    speaker.publish("/a", "2");
    m_bus->deliver();
    EXPECT_THAT(m_heard, ElementsAre("alive1"));
    EXPECT_EQ(captured.use_count(), 1) << "the closure outlived its call";
}

TEST_F(ConnectorMessageServiceTest, outlivesTheChoiceOfAnotherBus) {
    ConnectorMessageService speaker("speaker");
    MessageBus::install(std::make_shared<InProcessBus>());
    ConnectorMessageService elsewhere("elsewhere");
    elsewhere.subscribe("/a", recorder());
    speaker.publish("/a", "not for the other bus");
    m_bus->deliver();
    EXPECT_THAT(m_heard, IsEmpty());
}

}  // namespace
}  // namespace tdom::messaging
