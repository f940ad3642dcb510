#include "messaging/ConnectorMessageService.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "messaging/InProcessBus.h"

namespace tdom::messaging {
namespace {

using testing::ElementsAre;

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

TEST_F(ConnectorMessageServiceTest, destroyingItEndsItsSubscriptionsButNotItsTexts) {
    ConnectorMessageService listener("listener");
    listener.subscribe("/a", recorder());
    listener.publish("/a", "not for itself");
    {
        ConnectorMessageService leaving("leaving");
        leaving.subscribe("/b", recorder());
        leaving.publish("/a", "farewell");
        listener.publish("/b", "too late");
    }
    m_bus->deliver();
    EXPECT_THAT(m_heard, ElementsAre("farewell"));
}

TEST_F(ConnectorMessageServiceTest, staysOnItsBusWhenAnotherIsChosen) {
    ConnectorMessageService speaker("speaker"), listener("listener");
    MessageBus::install(std::make_shared<InProcessBus>());
    listener.subscribe("/a", recorder());
    speaker.publish("/a", "still together");
    m_bus->deliver();
    EXPECT_THAT(m_heard, ElementsAre("still together"));
}

}  // namespace
}  // namespace tdom::messaging
