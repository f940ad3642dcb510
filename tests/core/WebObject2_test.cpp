#include "core/WebObject2.h"

#include <QJsonArray>
#include <QJsonDocument>

#include "support/GivenObject.h"
#include "support/PlainWebObject.h"
#include "support/WebFixture.h"

namespace DOVA::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A shown window with one plain object in it.
class WebObject2Test : public WebFixture {
protected:
    WebObject2Test() {
        object.doSetParent(&window);
        show(window);
    }

    std::string text(const std::u16string& name) {
        return QJsonDocument(QJsonArray{object.getProperty(name)})
            .toJson(QJsonDocument::Compact)
            .toStdString();
    }

    DVDialog2 window;
    GivenObject front{70001};
    PlainWebObject& object = *new PlainWebObject(front);
};

TEST_F(WebObject2Test, aPropertyIsSentWhenItChangesAndSaysSoAndAnUpdateAlways) {
    object.setProperty(u"p", 1, true);
    object.setProperty(u"p", 1.0, true);
    object.setProperty(u"p", 2, false);
    object.setProperty(u"p", u"2", true);
    object.setProperty(u"p", std::u16string(u"2"), true);
    object.setProperty(u"p", static_cast<const char16_t*>(nullptr), true);
    object.updateProperty("u", 5);
    object.updateProperty("u", 5);
    const std::string update = sent(front, "PlainWebObject", "\"u\":5");
    EXPECT_THAT(client.takeTexts(),
                ElementsAre(sent(front, "PlainWebObject", "\"p\":1"),
                            sent(front, "PlainWebObject", "\"p\":\"2\""),
                            sent(front, "PlainWebObject", "\"p\":\"\""), update, update));
    EXPECT_TRUE(object.getProperty(u"u").isUndefined());
}

TEST_F(WebObject2Test, arraysAreStoredAndNeverSent) {
    int numbers[] = {7, 4, 7};
    object.setProperty(u"n", numbers, 3, true);
    object.setProperty(u"none", nullptr, 3, true);
    object.setProperty(u"less", numbers, -1, true);
    object.setProperty(u"t", std::vector<std::u16string>{u"4", u""}, true);
    object.addToArrayProperty(u"t", u"4294967295", true);
    EXPECT_EQ(text(u"n") + text(u"none") + text(u"less"), "[[7,4,7]][[]][[]]");
    EXPECT_EQ(text(u"t"), R"([["4","","4294967295"]])");
    EXPECT_EQ(object.getArrayPropertyIndex(u"n", 7), 0);
    EXPECT_EQ(object.getArrayPropertyIndex(u"n", 4), 1);
    EXPECT_EQ(object.getArrayPropertyIndex(u"n", 5), -1);
    EXPECT_EQ(object.getArrayPropertyIndex(u"t", 4294967295u), 2);
    EXPECT_EQ(object.getArrayPropertyIndex(u"absent", 0), -1);
    EXPECT_THAT(client.takeTexts(), IsEmpty());
}

TEST_F(WebObject2Test, arrayEditorsPutUpWithAnyIndexAndAnyValue) {
    object.setProperty(u"t", u"no array", false);
    EXPECT_EQ(object.getArrayPropertySize(u"t"), 0);
    object.insertToArrayProperty(u"t", 5, u"end", true);
    object.insertToArrayProperty(u"t", 0, u"begin", true);
    object.insertToArrayProperty(u"t", -1, u"after", true);
    object.insertToArrayProperty(u"t", 1, u"middle", true);
    EXPECT_EQ(text(u"t"), R"([["begin","middle","end","after"]])");
    for (const int index : {-1, 4, 1, 2147483647}) {
        object.removeFromArrayProperty(u"t", index, true);
    }
    EXPECT_EQ(text(u"t"), R"([["begin","end","after"]])");
    EXPECT_EQ(object.getFromArrayProperty(u"t", 2), u"after");
    EXPECT_EQ(object.getFromArrayProperty(u"t", 3), u"");
    EXPECT_EQ(object.getFromArrayProperty(u"t", -1), u"");
    EXPECT_THAT(client.takeTexts(), IsEmpty());
}

/// Two objects with one identifier: the second once spoke for the first, took its children along
/// and was left with a dangling service.
TEST_F(WebObject2Test, aSecondObjectOfAnIdentifierHasNoPartInTheFirst) {
    GivenObject child(70002);
    new PlainWebObject(child);
    child.setParent(&front);
    auto second = std::make_unique<PlainWebObject>(front);
    EXPECT_EQ(service().getObject(70001), &object);
    EXPECT_EQ(second->getService(), nullptr);
    second->setProperty(u"p", 1, true);
    second->doSetParent(nullptr);
    EXPECT_THAT(client.takeTexts(), IsEmpty());
    second.reset();
    EXPECT_EQ(service().getObject(70001), &object);
    EXPECT_THAT(service().getChildIds(70001), ElementsAre(70002));
    EXPECT_EQ(service().getParentId(70001), window.identifier());
}

TEST_F(WebObject2Test, childrenDieWithTheirParent) {
    std::vector<int> deaths;
    GivenObject fronts[] = {GivenObject(70002), GivenObject(70003)};
    object.onDeath = [&] { deaths.push_back(1); };
    (new PlainWebObject(fronts[0]))->onDeath = [&] { deaths.push_back(2); };
    (new PlainWebObject(fronts[1]))->onDeath = [&] { deaths.push_back(3); };
    fronts[0].setParent(&front);
    fronts[1].setParent(&fronts[0]);
    object.doDestory();
    EXPECT_THAT(deaths, ElementsAre(1, 2, 3));
    for (const unsigned id : {70001u, 70002u, 70003u}) {
        EXPECT_EQ(service().getObject(id), nullptr);
        EXPECT_EQ(service().getParentId(id), 0u);
    }
}

TEST_F(WebObject2Test, aParentThatIsGoneChangesNothing) {
    auto other = std::make_unique<GivenObject>(70009);
    GivenObject twin(70009);  // has the identifier, but is not the valid object
    object.doSetParent(&twin);
    EXPECT_EQ(front.parent(), &window);
    object.doSetParent(nullptr);
    EXPECT_EQ(front.parent(), nullptr);
}

}  // namespace
}  // namespace DOVA::test
