#include "widgets/WebWidget2.h"

#include "support/WebFixture.h"
#include "toolkit/DVButton2.h"
#include "toolkit/DVDialog2.h"
#include "toolkit/DpiScale.h"

namespace DOVA::test {
namespace {

using Size = diagram::TSize<int>;

class WebWidget2Test : public WebFixture {
protected:
    WebWidget2Test() { show(window); }
    ~WebWidget2Test() override { setDpiScale(1.0); }

    DVDialog2 window;
    DVButton2 button{&window};
};

TEST_F(WebWidget2Test, gettersAnswerAlikeWithAndWithoutElement) {
    for (DVWidget2* widget : {static_cast<DVWidget2*>(&button), static_cast<DVWidget2*>(&window)}) {
        EXPECT_TRUE(widget->isVisible() && widget->isEnabled() && widget->toolTip().empty());
        widget->hide();
        widget->setEnabled(false);
        widget->setToolTip(u"tip");
        widget->setObjectName(u8"größe");
        EXPECT_FALSE(widget->isVisible() || widget->isEnabled());
        EXPECT_EQ(widget->toolTip(), u"tip");
        EXPECT_EQ(widget->objectName(), u8"größe");
    }
}

TEST_F(WebWidget2Test, sizesAnswerScaledOnlyWhereTheyAreBounds) {
    EXPECT_TRUE(button.minimumSize() == (Size{0, 0}));
    EXPECT_TRUE(button.maximumSize() == (Size{16777215, 16777215}));
    setDpiScale(1.5);
    button.setMinimumSize({-1, 21});
    button.setMaximumSize({21, -1});
    button.setPreferredSize({10, 20});
    EXPECT_TRUE(button.minimumSize() == (Size{0, 31}));
    EXPECT_TRUE(button.maximumSize() == (Size{31, 16777215}));
    EXPECT_TRUE(button.preferredSize() == (Size{10, 20}));
    button.setMinimumSize({2147483647, 0});  // scaled, beyond an int
    EXPECT_TRUE(button.minimumSize() == (Size{2147483647, 0}));
}

TEST_F(WebWidget2Test, whatIsNotReadBackAnswersNeutrally) {
    for (const ColorRole role : {ColorRole::Background, ColorRole::Foreground}) {
        button.setColor(role, Color::fromRgb(1, 2, 3));
    }
    EXPECT_EQ(button.color(ColorRole::Background).rgba(), 0xFFFFFFFFu);
    EXPECT_EQ(button.color(ColorRole::Foreground).rgba(), 0u);
    const auto* web = webObject<WebWidget2>(button);
    EXPECT_TRUE(web->doHasFocus());
    EXPECT_FALSE(web->doIsActiveWindow() || web->doCanAcceptDrops() || web->doIsEventConsumed());
    EXPECT_TRUE(web->doMapToGlobal({3, 4}) == (diagram::PointTemplate<int>{3, 4}));
}

TEST_F(WebWidget2Test, everyRequestOfAWidgetIsBoundOnce) {
    const DVWidget2Emitters& all = *button.emitters();
    expectBoundOnce(all.setParent, all.getParent, all.getChildren, all.destroy, all.show, all.hide,
                    all.raise, all.refresh, all.setFocus, all.setVisible, all.setEnabled,
                    all.setToolTipU, all.setColor, all.setPosition, all.moveTo, all.setMinimumSize,
                    all.setMaximumSize, all.setPreferredSize, all.resize, all.setObjectName,
                    all.isVisible, all.isEnabled, all.getToolTipU, all.getColor, all.getPosition,
                    all.getMinimumSize, all.getMaximumSize, all.getPreferredSize, all.getObjectName,
                    all.sendTextMessage);
}

}  // namespace
}  // namespace DOVA::test
