// What the user does comes as events; the front object keeps the state that the backend leaves to
// it.

#include <gtest/gtest.h>

#include <string>

#include "FakeBackend.h"
#include "toolkit/DVButton2.h"
#include "toolkit/DVCheckBox2.h"
#include "toolkit/DVEdit2.h"

namespace {

using namespace DOVA;

TEST(UserInput, ToggledButtonKnowsItsStateBeforeTheProgramHears) {
    FakeBackend backend;
    DVButton2 button;
    std::string log;
    button.onToggle([&] { log += button.isChecked() ? "on;" : "off;"; });
    button.toggleEmitter().emit(DVButtonToggleEvent2(&button, true));
    button.toggleEmitter().emit(DVButtonToggleEvent2(&button, true));
    button.toggleEmitter().emit(DVButtonToggleEvent2(&button, false));
    EXPECT_EQ(log, "on;on;off;");
}

// A check box is switched by its backend; the front object does not say so a second time.
TEST(UserInput, ToggledCheckBoxIsLeftToTheBackend) {
    DVCheckBox2 box;
    int told = 0;
    WIRO::connect(box.emitters()->setChecked, [&] { ++told; });
    box.toggleEmitter().emit(DVButtonToggleEvent2(&box, true));
    EXPECT_EQ(told, 0);
}

TEST(UserInput, EditKnowsItsTextBeforeTheProgramWhichHasTheLastWord) {
    FakeBackend backend;
    DVEdit2 edit(nullptr, u"before");
    const auto add = [&](const DVEditEvent2& event) { edit.setText(edit.text() + event.text()); };
    edit.onEdit(add);
    edit.onEditFinish(add);
    edit.editEmitter().emit(DVEditEvent2(&edit, u"typed", 0, 0));
    EXPECT_EQ(edit.text(), u"typedtyped");
    edit.editFinishedEmitter().emit(DVEditEvent2(&edit, u"done", 0, 0));
    EXPECT_EQ(edit.text(), u"donedone");
}

}  // namespace
