#include <QJsonArray>
#include <QJsonDocument>
#include <algorithm>
#include <memory>

#include "core/DescriptionText.h"
#include "core/MessageService.h"
#include "support/WebFixture.h"
#include "toolkit/DVBoxLayout2.h"
#include "toolkit/DVButton2.h"
#include "toolkit/DVCheckBox2.h"
#include "toolkit/DVComboBox2.h"
#include "toolkit/DVEdit2.h"
#include "toolkit/DVFactory2.h"
#include "toolkit/DVGridLayout2.h"
#include "toolkit/DVGroupBox2.h"
#include "toolkit/DVPanel2.h"
#include "toolkit/DVTab2.h"
#include "toolkit/DVTabContainer2.h"
#include "toolkit/DVText2.h"
#include "widgets/WebButton2.h"

namespace DOVA::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class WebContainersTest : public WebFixture {
protected:
    DVDialog2 window;
};

TEST_F(WebContainersTest, aContainerForgetsALayoutThatIsGone) {
    EXPECT_EQ(window.layout(), nullptr);
    auto layout = std::make_unique<DVBoxLayout2>();
    window.setLayout(layout.get());
    EXPECT_EQ(window.layout(), layout.get());
    EXPECT_THAT(window.children(), ElementsAre(layout.get()));
    layout.reset();
    EXPECT_EQ(window.layout(), nullptr);
    window.setLayout(nullptr);
    EXPECT_EQ(window.layout(), nullptr);
}

TEST_F(WebContainersTest, everyWayOfAddingMakesAChildAndSendsNothing) {
    DVPanel2 panel(&window);
    DVGridLayout2 grid(&panel);  // attaches itself, a box does not
    DVBoxLayout2 box(&panel);
    EXPECT_THAT(panel.children(), ElementsAre(&grid));
    panel.setLayout(&box);
    DVButton2 first;
    DVButton2 second;
    show(window);
    box.addWidget(&grid);
    box.addWidget(&first, 7, Alignment::Center);
    grid.addWidget(&second, {3, 4, 5, 6}, Alignment::Top);
    box.addWidget(nullptr);
    box.removeWidget(nullptr);
    EXPECT_THAT(window.children(), ElementsAre(&panel));
    EXPECT_THAT(window.children(true), ElementsAre(&panel, &box, &grid, &second, &first));
    EXPECT_EQ(second.parent(), &panel) << "layouts are children and no parents";
    grid.removeWidget(&second);
    EXPECT_THAT(grid.children(), IsEmpty());
    EXPECT_EQ(second.parent(), nullptr);
    DVButton2 closed;
    DVFactory2::current()->destroy.emit(closed.identifier());
    grid.addWidget(&closed);
    EXPECT_THAT(grid.children(), IsEmpty());
    EXPECT_THAT(client.takeTexts(), IsEmpty());
}

/// It overflowed the stack, for one call within another on every level.
TEST_F(WebContainersTest, twentyThousandLevelsAreShownRefreshedAndDestroyed) {
    constexpr std::size_t levels = 20000;
    DVObject2* deepest = &window;
    std::vector<std::unique_ptr<DVBoxLayout2>> layouts;
    for (std::size_t level = 0; level < levels; ++level) {
        deepest = level < levels / 2 ? static_cast<DVObject2*>(&deepest->make<DVPanel2>())
                                     : layouts.emplace_back(std::make_unique<DVBoxLayout2>()).get();
        if (!layouts.empty()) {
            deepest->setParent(layouts.size() == 1 ? window.children(true).back()
                                                   : layouts[layouts.size() - 2].get());
        }
    }
    window.show();
    dynamic_cast<DVPanel2*>(window.children().at(0))->show();
    const auto texts = client.takeTexts();
    ASSERT_EQ(texts.size(), 2u);
    const std::string id = "{\"id\":\"" + std::to_string(deepest->identifier());
    for (const std::string& text : texts) {
        EXPECT_THAT(text, testing::HasSubstr(id));
        EXPECT_EQ(std::count(text.begin(), text.end(), '{'),
                  std::count(text.begin(), text.end(), '}'));
    }
    EXPECT_THAT(texts[1], testing::HasSubstr("\"msgType\":\"refresh\",\"parentId\""));
    EXPECT_EQ(window.children(true).size(), levels);
    EXPECT_EQ(deepest->parent(), window.children(true).at(levels / 2 - 1));
    window.close();
    EXPECT_EQ(deepest->parent(), nullptr);
}

/// A program's own class, described in its own way.
class OwnButton : public WebButton2 {
public:
    OwnButton(DVButton2& front, DVButton2Emitters& emitters, QJsonObject description)
        : WebButton2(&front, &emitters, nullptr), m_description(std::move(description)) {}
    QJsonObject getJSonObject() const override { return m_description; }

private:
    const QJsonObject m_description;
};

TEST_F(WebContainersTest, aDescriptionIsWhatQtWrites) {
    window.setTitle(u"a \"title\"");
    window.showNormal();  // properties before and behind "contents"
    DVPanel2 panel(&window);
    DVBoxLayout2 box;
    panel.setLayout(&box);
    DVButton2 button(&panel, u"\u00FC\n\xD83D\xDE00\xD83D");
    DVCheckBox2 check(&panel);
    DVEdit2 edit(&panel, u"text");
    DVText2 text(&panel, u"\"contents\":[");
    DVComboBox2 combo(&panel, {u"a", u"\\"});
    DVTabContainer2 tabs(&window);
    DVTab2 tab(&tabs);
    DVGroupBox2 group(&window);
    DVGridLayout2 grid(&group);
    DVButton2 inButton(&button);
    DVButton2 own[4];
    button.setColor(ColorRole{0}, Color());
    text.setBuddy(&edit);
    webObject<WebObject2>(tab)->setProperty(u"contents", 1, false);
    webObject<WebObject2>(tabs)->setProperty(u"contents", 1, false);
    webObject<WebObject2>(grid)->setProperty(u"\u00FC", 1.5, false);
    DVButton2Emitters emitters[4];
    const QJsonObject descriptions[] = {
        {}, {{"contents", 7}, {"a", 1}}, {{"contents", 7}, {"z", QJsonArray()}}, {}};
    const DVObject* parents[] = {&grid, &own[0], &box, &own[2]};
    for (int i = 0; i < 4; ++i) {
        webObject<WebObject2>(own[i])->doDestory();
        new OwnButton(own[i], emitters[i], descriptions[i]);
        service().setParent(own[i].identifier(), parents[i]->identifier());
    }
    std::vector<DVObject*> objects = window.children(true);
    objects.push_back(&window);
    ASSERT_GE(objects.size(), 16u);
    for (const DVObject* object : objects) {
        QJsonObject description = service().describe(object->identifier());
        const auto expected = [&] { return toWireText(QJsonDocument(description)); };
        EXPECT_EQ(descriptionText(service(), object->identifier()), expected());
        description.insert("msgType", "refresh");
        EXPECT_EQ(descriptionText(service(), object->identifier(), {{"msgType", "refresh"}}),
                  expected());
    }
}

}  // namespace
}  // namespace DOVA::test
