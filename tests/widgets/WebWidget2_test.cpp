#include "widgets/WebWidget2.h"

#include "support/WebFixture.h"
#include "toolkit/DVButton2.h"
#include "toolkit/DVDialog2.h"
#include "toolkit/DpiScale.h"
#include "widgets/WebButton2.h"

namespace DOVA::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Size = diagram::TSize<int>;

class WebWidget2Test : public WebFixture {
protected:
    WebWidget2Test() { show(window); }
    ~WebWidget2Test() override { setDpiScale(1.0); }

    DVDialog2 window;
    DVButton2 button{&window};
};

TEST_F(WebWidget2Test, startsVisibleEnabledAndUnbounded) {
    EXPECT_TRUE(button.isVisible() && button.isEnabled());
    EXPECT_TRUE(button.minimumSize() == (Size{0, 0}));
    EXPECT_TRUE(button.maximumSize() == (Size{16777215, 16777215}));
    EXPECT_EQ(button.toolTip(), u"");
}

TEST_F(WebWidget2Test, gettersAnswerAlikeWithAndWithoutElement) {
    for (DVWidget2* widget : {static_cast<DVWidget2*>(&button), static_cast<DVWidget2*>(&window)}) {
        widget->hide();
        widget->setEnabled(false);
        widget->setToolTip(u"tip");
        EXPECT_FALSE(widget->isVisible() || widget->isEnabled());
        EXPECT_EQ(widget->toolTip(), u"tip");
    }
}

TEST_F(WebWidget2Test, sizesAreScaledWhenSentAndOnlySomeWhenAnswered) {
    setDpiScale(1.5);
    button.setMinimumSize({-1, 21});
    button.setMaximumSize({21, -1});
    button.setPreferredSize({10, 20});
    EXPECT_TRUE(button.minimumSize() == (Size{0, 31}));
    EXPECT_TRUE(button.maximumSize() == (Size{31, 16777215}));
    EXPECT_TRUE(button.preferredSize() == (Size{10, 20}));
    EXPECT_THAT(
        client.takeTexts(),
        ElementsAre(sent(button, "Button", R"("setMinimumHeight":"31")"),
                    sent(button, "Button", R"("setMaximumWidth":"31")"),
                    sent(button, "Button", R"("setPreferredSize":"[15.000000,30.000000]")")));
}

TEST_F(WebWidget2Test, aSizeBeyondAnIntIsTheLargestInt) {
    setDpiScale(3.0);
    button.setMinimumSize({2147483647, 0});
    EXPECT_TRUE(button.minimumSize() == (Size{2147483647, 0}));
}

TEST_F(WebWidget2Test, coloursAreNotReadBack) {
    button.setColor(ColorRole::Background, Color::fromRgb(1, 2, 3));
    button.setColor(ColorRole::Foreground, Color::fromRgb(1, 2, 3));
    EXPECT_EQ(button.color(ColorRole::Background).rgba(), 0xFFFFFFFFu);
    EXPECT_EQ(button.color(ColorRole::Foreground).rgba(), 0u);
}

TEST_F(WebWidget2Test, namesAreUtf8OnTheOutside) {
    button.setObjectName(
        "gr\xC3\xB6\xC3\x9F"
        "e");
    EXPECT_EQ(button.objectName(),
              "gr\xC3\xB6\xC3\x9F"
              "e");
    EXPECT_THAT(client.takeTexts(), ElementsAre(sent(button, "Button",
                                                     "\"objectName\":\"gr\xC3\xB6\xC3\x9F"
                                                     "e\"")));
}

TEST_F(WebWidget2Test, everyTriggerIsSentEachTime) {
    auto* web = webObject<WebWidget2>(button);
    for (int i = 0; i < 2; ++i) {
        web->doRaise();
        web->doUpdate();
        web->doAdjustSize();
    }
    EXPECT_EQ(client.takeTexts().size(), 6u);
}

TEST_F(WebWidget2Test, whatIsNotSupportedAnswersNeutrally) {
    const auto* web = webObject<WebWidget2>(button);
    EXPECT_TRUE(web->doHasFocus());
    EXPECT_FALSE(web->doIsActiveWindow() || web->doCanAcceptDrops() || web->doIsEventConsumed() ||
                 web->doIsWidgetHighlighted());
    EXPECT_TRUE(web->doMapToGlobal({3, 4}) == (diagram::PointTemplate<int>{3, 4}));
    EXPECT_THAT(web->doGetActions(), IsEmpty());
    EXPECT_EQ(web->doGetWinId(), 0u);
}

/// A request that nobody binds does nothing without a word.
TEST_F(WebWidget2Test, everyRequestOfAWidgetIsBoundOnce) {
    const DVWidget2Emitters& all = *button.emitters();
    const WIRO::EmitterBase* const requests[] = {&all.setParent,      &all.getParent,
                                                 &all.getChildren,    &all.destroy,
                                                 &all.show,           &all.hide,
                                                 &all.raise,          &all.refresh,
                                                 &all.setFocus,       &all.setVisible,
                                                 &all.setEnabled,     &all.setToolTipU,
                                                 &all.setColor,       &all.setPosition,
                                                 &all.moveTo,         &all.setMinimumSize,
                                                 &all.setMaximumSize, &all.setPreferredSize,
                                                 &all.resize,         &all.setObjectName,
                                                 &all.isVisible,      &all.isEnabled,
                                                 &all.getToolTipU,    &all.getColor,
                                                 &all.getPosition,    &all.getMinimumSize,
                                                 &all.getMaximumSize, &all.getPreferredSize,
                                                 &all.getObjectName,  &all.sendTextMessage};
    for (const WIRO::EmitterBase* request : requests) {
        EXPECT_EQ(request->numberOfConnections(), 1u);
    }
}

}  // namespace
}  // namespace DOVA::test
