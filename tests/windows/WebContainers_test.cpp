#include <memory>

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

TEST_F(WebContainersTest, layoutsAnswerTheLastSpacing) {
    DVGridLayout2 grid;
    EXPECT_FALSE(grid.isEnabled());
    EXPECT_EQ(grid.spacing(), 0);
    grid.setSpacing(-3);
    grid.setEnabled(true);
    EXPECT_EQ(grid.spacing(), -3);
    EXPECT_TRUE(grid.isEnabled());
}

}  // namespace
}  // namespace DOVA::test
