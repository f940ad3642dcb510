#include "core/WebObjectService2.h"

#include <algorithm>
#include <map>
#include <random>

#include "core/WebFactory2.h"
#include "support/GivenObject.h"
#include "support/PlainWebObject.h"
#include "support/WebFixture.h"
#include "toolkit/DVBoxLayout2.h"
#include "toolkit/DVButton2.h"
#include "toolkit/DVFactory2.h"
#include "toolkit/DVText2.h"

namespace DOVA::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A service of its own, with identifiers that nobody registered.
class ParentTableTest : public testing::Test {
protected:
    WebObjectService2 service;
};

TEST_F(ParentTableTest, childrenKeepTheOrderOfAttachment) {
    for (const unsigned child : {5u, 2u, 9u, 1u}) {
        service.setParent(child, 100);
    }
    service.setParent(2, 100);  // already there: keeps its place
    EXPECT_THAT(service.getChildIds(100), ElementsAre(5, 2, 9, 1));
    service.setParent(5, 200);
    service.setParent(5, 100);  // moved: goes to the end
    EXPECT_THAT(service.getChildIds(100), ElementsAre(2, 9, 1, 5));
    service.setParent(9, 0);
    EXPECT_THAT(service.getChildIds(100), ElementsAre(2, 1, 5));
    EXPECT_EQ(service.getParentId(9), 0u);
    EXPECT_THAT(service.getChildIds(200), IsEmpty());
}

TEST_F(ParentTableTest, theRelationStaysATree) {
    service.setParent(2, 1);
    service.setParent(3, 2);
    service.setParent(1, 3);
    service.setParent(2, 2);
    EXPECT_EQ(service.getParentId(1), 0u);
    EXPECT_EQ(service.getParentId(2), 1u);
    service.setParent(3, 1);
    service.setParent(2, 3);
    EXPECT_THAT(service.getChildIds(1), ElementsAre(3));
    EXPECT_THAT(service.getChildIds(3), ElementsAre(2));
}

TEST_F(ParentTableTest, agreesWithASimpleModel) {
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    std::map<unsigned, unsigned> parents;
    std::map<unsigned, std::vector<unsigned>> children;
    for (int step = 0; step < 5000; ++step) {
        const unsigned child = random() % 12 + 1;
        const unsigned parent = random() % 13;
        service.setParent(child, parent);
        unsigned ancestor = parent;
        while (ancestor != 0 && ancestor != child) {
            ancestor = parents[ancestor];
        }
        if (parents[child] != parent && ancestor == 0) {
            auto& old = children[parents[child]];
            old.erase(std::remove(old.begin(), old.end(), child), old.end());
            parents[child] = parent;
            if (parent != 0) {
                children[parent].push_back(child);
            }
        }
        for (unsigned id = 1; id <= 12; ++id) {
            ASSERT_EQ(service.getParentId(id), parents[id]);
            ASSERT_EQ(service.getChildIds(id), children[id]);
        }
    }
}

class WebObjectService2Test : public WebFixture {};

TEST_F(WebObjectService2Test, anObjectThatIsNotRegisteredHasNoPart) {
    EXPECT_TRUE(service().describe(4000000000u).isEmpty());
    EXPECT_THAT(service().getConnectionNumbers(4000000000u), IsEmpty());
    service().serveSubtree(4000000000u, 1);
    EXPECT_FALSE(service().serves(1, 4000000000u));
    service().send(4000000000u, QJsonDocument(QJsonObject()));
    EXPECT_THAT(client.takeTexts(), IsEmpty());
}

TEST_F(WebObjectService2Test, aNumberWithoutConnectionIsSkipped) {
    DVDialog2 window;
    show(window);
    service().serveSubtree(window.identifier(), 987654321);
    window.setTitle(u"t");
    EXPECT_EQ(client.takeTexts().size(), 1u);
}

TEST_F(WebObjectService2Test, aWindowHasNoConnectionOnceItIsGone) {
    auto window = std::make_unique<DVDialog2>();
    DVButton2 button(window.get());
    show(*window);
    const auto numbers = service().getConnectionNumbers(button.identifier());
    ASSERT_EQ(numbers.size(), 1u);
    const unsigned id = window->identifier();
    window.reset();
    EXPECT_FALSE(service().serves(*numbers.begin(), id));
    EXPECT_FALSE(service().serves(*numbers.begin(), button.identifier()));
}

TEST_F(WebObjectService2Test, factoryLooksUpWhatItDestroys) {
    DVFactory2* factory = DVFactory2::getFactory(StringID::setStringID("web"));
    factory->destroy.emit(4000000000u);
    DVButton2 button;
    ASSERT_NE(service().getObject(button.identifier()), nullptr);
    factory->destroy.emit(button.identifier());
    EXPECT_EQ(service().getObject(button.identifier()), nullptr);
    button.setLabel(u"x");
    EXPECT_EQ(button.label(), u"");
}

TEST_F(WebObjectService2Test, aSecondFactoryIsNotBound) {
    DVFactory2 second(nullptr);
    WebFactory2::createFactory(&second);
    EXPECT_EQ(second.destroy.numberOfConnections(), 0u);
    EXPECT_EQ(second.createDialog2.numberOfConnections(), 0u);
}

TEST_F(WebObjectService2Test, everyCallOfTheModelAddsAReference) {
    const auto model = WebFactory2::getModel();
    EXPECT_TRUE(model);
    EXPECT_EQ(model, WebFactory2::getModel());
}

TEST_F(WebObjectService2Test, handlersMayOpenAndDestroyWindowsInTheMiddleOfAnArray) {
    auto window = std::make_unique<DVDialog2>();
    DVButton2 destroys(window.get());
    DVButton2 lost(window.get());
    std::unique_ptr<DVDialog2> next;
    int clicks = 0;
    destroys.onClick([&] {
        window.reset();
        next = std::make_unique<DVDialog2>();
        next->show();
    });
    lost.onClick([&] { ++clicks; });
    show(*window);
    const std::string channel = windowChannel(*window);
    client.say(channel, "[" + message(destroys, "\"event\":\"onClick\"") + "," +
                            message(lost, "\"event\":\"onClick\"") + "]");
    EXPECT_EQ(clicks, 0);
    const auto notes = client.take();
    ASSERT_EQ(notes.size(), 2u);
    EXPECT_EQ(notes[0].first, channel);
    EXPECT_EQ(notes[1].first, clientChannel());
}

TEST_F(WebObjectService2Test, thousandsOfForeignMessagesLeaveTheOthersAtWork) {
    DVDialog2 window;
    DVDialog2 other;
    DVButton2 button(&window);
    int clicks = 0;
    button.onClick([&] { ++clicks; });
    show(window);
    show(other);
    for (int i = 0; i < 5000; ++i) {
        client.publish(windowChannel(other), message(button, "\"event\":\"onClick\""));
        client.publish(windowChannel(window), "{\"id\":\"4294967294\",\"event\":\"onClick\"}");
        client.publish(clientChannel(), "{\"dialogDestroyed\":\"4294967294\"}");
        client.publish(RecordingClient::Root, "{\"clientDestroyed\":\"nobody\"}");
    }
    client.deliver();
    EXPECT_EQ(clicks, 0);
    say(window, button, "\"event\":\"onClick\"");
    EXPECT_EQ(clicks, 1);
}

}  // namespace
}  // namespace DOVA::test
