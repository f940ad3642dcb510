#include <memory>

#include "support/GivenObject.h"
#include "support/WebFixture.h"
#include "toolkit/DVButton2.h"
#include "toolkit/DVEdit2.h"
#include "toolkit/DVText2.h"
#include "widgets/WebButton2.h"
#include "widgets/WebEdit2.h"

namespace DOVA::test {
namespace {

using testing::ElementsAre;

/// A text, an edit and a button in a shown window.
class ControlsTest : public WebFixture {
protected:
    ControlsTest() { show(window); }

    DVDialog2 window;
    DVText2 text{&window};
    DVEdit2 edit{&window};
    DVButton2 button{&window};
};

TEST_F(ControlsTest, aBuddyIsForgottenWhenItGoes) {
    EXPECT_EQ(text.buddy(), nullptr);
    auto buddy = std::make_unique<DVEdit2>(&window);
    text.setBuddy(buddy.get());
    EXPECT_EQ(text.buddy(), buddy.get());
    text.setBuddy(nullptr);
    EXPECT_EQ(text.buddy(), buddy.get());
    buddy.reset();
    EXPECT_EQ(text.buddy(), nullptr);
}

TEST_F(ControlsTest, aBuddyMayHaveIdentifierZero) {
    GivenObject buddy(0);
    text.setBuddy(&buddy);
    EXPECT_THAT(client.takeTexts(), ElementsAre(sent(text, "Text", "\"buddy\":\"0\"")));
    EXPECT_EQ(text.buddy(), nullptr);
}

TEST_F(ControlsTest, anEmptyIconHasNoImage) {
    const std::string first = u8"größe.svg";
    auto* web = webObject<WebButton2>(button);
    web->doSetIcon(Icon());
    EXPECT_EQ(web->doGetIcon().imageCount(), 0u);
    Icon icon;
    icon.insertImage(first);
    icon.insertImage("second.svg");
    web->doSetIcon(icon);
    EXPECT_EQ(web->doGetIcon().imageCount(), 1u);
    EXPECT_EQ(web->doGetIcon().getFile(0), first);
}

/// The end may be told before the client has heard what became of the typing.
TEST_F(ControlsTest, theEndOfAnEditDoesNotUndoWhatAHandlerMadeOfIt) {
    edit.onEdit([&](const DVEditEvent2& event) {
        EXPECT_EQ(event.edit(), &edit);
        EXPECT_TRUE(event.text() == u"Ada" && event.position() == 0 && event.length() == 0);
        edit.setText(u"ADA");
    });
    say(window, edit, R"("event":"onEdit","value":"Ada")");
    say(window, edit, R"("event":"onEditFinish","value":"Ada")");
    EXPECT_EQ(edit.text(), u"ADA");
    say(window, edit, R"("event":"onEditFinish","value":"Ada L.")");
    EXPECT_EQ(edit.text(), u"Ada L.");
}

}  // namespace
}  // namespace DOVA::test
