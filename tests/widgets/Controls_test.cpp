#include "widgets/WebText2.h"

#include <memory>

#include "support/GivenObject.h"
#include "support/WebFixture.h"
#include "toolkit/DVButton2.h"
#include "toolkit/DVCheckBox2.h"
#include "toolkit/DVEdit2.h"
#include "toolkit/DVText2.h"
#include "widgets/WebButton2.h"
#include "widgets/WebCheckBox2.h"
#include "widgets/WebEdit2.h"

namespace DOVA::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Texts, edits and buttons in a shown window.
class ControlsTest : public WebFixture {
protected:
    ControlsTest() { show(window); }

    DVDialog2 window;
    DVText2 text{&window};
    DVEdit2 edit{&window};
    DVButton2 button{&window};
    DVCheckBox2 check{&window};
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

TEST_F(ControlsTest, equalTextsAndLabelsStaySilentAndEverythingElseDoesNot) {
    for (int i = 0; i < 2; ++i) {
        text.setText(u"t");
        edit.setText(u"e");
        button.setLabel(u"b");
        check.setLabel(u"c");
        webObject<WebEdit2>(edit)->doSetPlaceHolderText(u"p");
        check.setChecked(true);
        button.setDefault(true);
    }
    EXPECT_THAT(client.takeTexts(), ElementsAre(sent(text, "Text", "\"text\":\"t\""),
                                                sent(edit, "Edit", "\"text\":\"e\""),
                                                sent(button, "Button", "\"label\":\"b\""),
                                                sent(check, "CheckBox", "\"label\":\"c\""),
                                                sent(edit, "Edit", "\"placeholder\":\"p\""),
                                                sent(check, "CheckBox", "\"checked\":true"),
                                                sent(button, "Button", "\"defaultbutton\":true"),
                                                sent(edit, "Edit", "\"placeholder\":\"p\""),
                                                sent(check, "CheckBox", "\"checked\":true"),
                                                sent(button, "Button", "\"defaultbutton\":true")));
}

TEST_F(ControlsTest, halfASurrogatePairIsKept) {
    const std::u16string half =
        u"a\xD800"
        u"b";
    edit.setText(half);
    EXPECT_EQ(edit.text(), half);
}

TEST_F(ControlsTest, anEmptyIconHasNoImage) {
    auto* web = webObject<WebButton2>(button);
    web->doSetIcon(Icon());
    EXPECT_EQ(web->doGetIcon().imageCount(), 0u);
    Icon icon;
    icon.insertImage(
        "gr\xC3\xB6\xC3\x9F"
        "e.svg");
    icon.insertImage("second.svg");
    web->doSetIcon(icon);
    EXPECT_EQ(web->doGetIcon().imageCount(), 1u);
    EXPECT_EQ(web->doGetIcon().getFile(0),
              "gr\xC3\xB6\xC3\x9F"
              "e.svg");
}

TEST_F(ControlsTest, aCheckBoxFollowsTheClientAndSendsNothingBack) {
    say(window, check, R"("event":"onToggle","value":true)");
    EXPECT_TRUE(check.isChecked());
    say(window, check, R"("event":"onToggle")");
    EXPECT_FALSE(check.isChecked());
    EXPECT_THAT(client.takeTexts(), IsEmpty());
}

TEST_F(ControlsTest, thePartsOfAnEditEvent) {
    std::u16string heard;
    edit.onEditFinish([&](const DVEditEvent2& event) {
        EXPECT_EQ(event.edit(), &edit);
        EXPECT_EQ(event.position(), 0);
        EXPECT_EQ(event.length(), 0);
        heard = event.text();
    });
    say(window, edit, R"("event":"onEditFinish","value":"done")");
    EXPECT_EQ(heard, u"done");
}

/// Each kind of event with a handler that destroys its own object.
TEST_F(ControlsTest, aHandlerMayDestroyItsObject) {
    auto ownEdit = std::make_unique<DVEdit2>(&window);
    auto ownButton = std::make_unique<DVButton2>(&window);
    auto ownCheck = std::make_unique<DVCheckBox2>(&window);
    const std::string texts[] = {message(*ownEdit, R"("event":"onEdit","value":"x")"),
                                 message(*ownButton, R"("event":"onClick")"),
                                 message(*ownCheck, R"("event":"onToggle","value":true)")};
    ownEdit->onEdit([&] { ownEdit.reset(); });
    ownButton->onClick([&] { ownButton.reset(); });
    ownCheck->onToggle([&] { ownCheck.reset(); });
    for (const std::string& one : texts) {
        client.say(windowChannel(window), "[" + one + "," + one + "]");
    }
    EXPECT_FALSE(ownEdit || ownButton || ownCheck);
}

}  // namespace
}  // namespace DOVA::test
