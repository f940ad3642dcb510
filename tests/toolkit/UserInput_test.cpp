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
    for (const bool checked : {true, true, false}) {
        button.toggleEmitter().emit(DVButtonToggleEvent2(&button, checked));
    }
    EXPECT_EQ(log, "on;on;off;");
    // A check box is switched by its backend; the front object does not say so a second time.
    DVCheckBox2 box;
    WIRO::connect(box.emitters()->setChecked, [] { ADD_FAILURE() << "told"; });
    box.toggleEmitter().emit(DVButtonToggleEvent2(&box, true));
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
