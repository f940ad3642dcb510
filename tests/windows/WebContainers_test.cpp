#include <memory>

#include "support/WebFixture.h"
#include "toolkit/DVBoxLayout2.h"
#include "toolkit/DVButton2.h"
#include "toolkit/DVFactory2.h"
#include "toolkit/DVGridLayout2.h"
#include "toolkit/DVPanel2.h"
#include "windows/WebBoxLayout2.h"
#include "windows/WebGridLayout2.h"
#include "windows/WebPanel2.h"

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

TEST_F(WebContainersTest, aGridAttachesItselfAndABoxDoesNot) {
    DVGridLayout2 grid(&window);
    DVBoxLayout2 box(&window);
    DVBoxLayout2 across(&window, Direction::LeftToRight);
    EXPECT_THAT(window.children(), ElementsAre(&grid));
    EXPECT_EQ(webObject<WebBoxLayout2>(across)->getTypeName(),
              webObject<WebBoxLayout2>(box)->getTypeName());
}

TEST_F(WebContainersTest, everyWayOfAddingMakesAChildAndSendsNothing) {
    DVBoxLayout2 box;
    DVGridLayout2 grid;
    window.setLayout(&box);
    DVButton2 first;
    DVButton2 second;
    show(window);
    box.addWidget(&grid);
    box.addWidget(&first, 7, Alignment::Center);
    grid.addWidget(&second, {3, 4, 5, 6}, Alignment::Top);
    box.addWidget(nullptr);
    box.removeWidget(nullptr);
    EXPECT_THAT(window.children(true), ElementsAre(&box, &grid, &second, &first));
    grid.removeWidget(&second);
    EXPECT_THAT(grid.children(), IsEmpty());
    EXPECT_EQ(second.parent(), nullptr);
    EXPECT_THAT(client.takeTexts(), IsEmpty());
}

TEST_F(WebContainersTest, aWidgetWithoutWebObjectIsIgnored) {
    DVBoxLayout2 box;
    DVButton2 closed;
    DVFactory2::getFactory(StringID::setStringID("web"))->destroy.emit(closed.identifier());
    box.addWidget(&closed);
    box.removeWidget(&closed);
    EXPECT_THAT(box.children(), IsEmpty());
}

TEST_F(WebContainersTest, layoutsAnswerTheLastSpacingAndNoMargins) {
    DVGridLayout2 grid;
    auto* web = webObject<WebGridLayout2>(grid);
    EXPECT_FALSE(grid.isEnabled());
    EXPECT_EQ(grid.spacing(), 0);
    grid.setSpacing(-3);
    grid.setEnabled(true);
    web->doSetMargins({5, 5, 5, 5});
    web->doSetRowStretch(3, 7);
    EXPECT_EQ(grid.spacing(), -3);
    EXPECT_TRUE(grid.isEnabled());
    EXPECT_TRUE(web->doGetMargins() == diagram::RectTemplate<int>());
    EXPECT_EQ(web->doGetRowStretch(3), 0);
}

TEST_F(WebContainersTest, panelsHaveNoColoursAndOneMark) {
    DVPanel2 panel(&window);
    panel.setColor(ColorRole::Background, Color::fromRgb(1, 2, 3));
    auto* web = webObject<WebPanel2>(panel);
    EXPECT_TRUE(web->getProperty(u"style").isUndefined());
    EXPECT_TRUE(web->getProperty(u"meta").isUndefined());
    panel.setButtonPanel(false);
    EXPECT_EQ(web->getProperty(u"meta").toString(), "StandardButtonSet");
}

}  // namespace
}  // namespace DOVA::test
