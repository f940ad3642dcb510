#include "core/WebObjectService2.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <map>
#include <random>

#include "core/WebFactory2.h"
#include "support/WebFixture.h"
#include "toolkit/DVButton2.h"
#include "toolkit/DVFactory2.h"

namespace DOVA::test {
namespace {

using testing::IsEmpty;

/// Children in the order of attachment, one that is moved goes to the end; the relation stays a
/// tree.
TEST(ParentTableTest, agreesWithASimpleModel) {
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    WebObjectService2 service;
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

TEST_F(WebObjectService2Test, whatIsNotRegisteredHasNoPart) {
    constexpr unsigned nobody = 4000000000u;
    EXPECT_TRUE(service().describe(nobody).isEmpty());
    EXPECT_THAT(service().getConnectionNumbers(nobody), IsEmpty());
    service().serveSubtree(nobody, 1);
    EXPECT_FALSE(service().serves(1, nobody));
    service().send(nobody, QJsonDocument(QJsonObject()));
    DVFactory2::getFactory(StringID::setStringID("web"))->destroy.emit(nobody);
    EXPECT_THAT(client.takeTexts(), IsEmpty());
    DVDialog2 window;
    show(window);
    service().serveSubtree(window.identifier(), 987654321);  // a number without connection
    window.setTitle(u"t");
    EXPECT_EQ(client.takeTexts().size(), 1u);
}

TEST_F(WebObjectService2Test, aWindowLeavesNoRecordOfItsConnection) {
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

TEST_F(WebObjectService2Test, aSecondFactoryIsNotBound) {
    DVFactory2 second(nullptr);
    WebFactory2::createFactory(&second);
    EXPECT_EQ(second.destroy.numberOfConnections(), 0u);
    EXPECT_EQ(second.createDialog2.numberOfConnections(), 0u);
}

}  // namespace
}  // namespace DOVA::test
