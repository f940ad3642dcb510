#include <QJsonDocument>
#include <algorithm>
#include <memory>

#include "core/DeepDescription.h"
#include "core/MessageService.h"
#include "support/WebFixture.h"
#include "toolkit/DVBoxLayout2.h"
#include "toolkit/DVButton2.h"
#include "toolkit/DVFactory2.h"
#include "toolkit/DVGridLayout2.h"
#include "toolkit/DVPanel2.h"

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

TEST_F(WebContainersTest, aDeepDescriptionReadsAsAnyOther) {
    DVPanel2 panel(&window);
    DVBoxLayout2 box;
    panel.setLayout(&box);
    DVButton2 first;
    DVButton2 second(&window);
    box.addWidget(&first);
    panel.setToolTip(u"\"contents\":[]");
    for (const DVObject2* object :
         std::initializer_list<DVObject2*>{&window, &panel, &box, &first}) {
        QJsonObject description = service().describe(object->identifier());
        description.insert("msgType", "refresh");
        EXPECT_EQ(deepDescription(service(), object->identifier(), {{"msgType", "refresh"}}),
                  toWireText(QJsonDocument(description)));
    }
}

}  // namespace
}  // namespace DOVA::test
