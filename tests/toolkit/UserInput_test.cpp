// What the user does comes as events; the front object keeps the state that the backend leaves to
// it.

#include <gtest/gtest.h>

#include <string>

#include "FakeBackend.h"
#include "toolkit/DVButton2.h"
#include "toolkit/DVCheckBox2.h"
#include "toolkit/DVDialog2.h"
#include "toolkit/DVEdit2.h"

namespace {

using namespace DOVA;

TEST(UserInput, ToggledButtonKnowsItsStateBeforeTheProgramHears) {
    FakeBackend backend;
    DVButton2 button;
    std::string log;
    button.onToggle([&](const DVButtonToggleEvent2& event) {
        log += event.checked() == button.isChecked() ? "same " : "other ";
        log += button.isChecked() ? "on;" : "off;";
    });
    button.toggleEmitter().emit(DVButtonToggleEvent2(&button, true));
    button.toggleEmitter().emit(DVButtonToggleEvent2(&button, true));
    button.toggleEmitter().emit(DVButtonToggleEvent2(&button, false));
    EXPECT_EQ(log, "same on;same on;same off;");
}

// A check box is switched by its backend; the front object does not say so a second time.
TEST(UserInput, ToggledCheckBoxIsLeftToTheBackend) {
    FakeBackend backend;
    DVCheckBox2 box;
    box.toggleEmitter().emit(DVButtonToggleEvent2(&box, true));
    EXPECT_FALSE(box.isChecked());
}

struct EditRow {
    const char* name;
    WIRO::Emitter<void(const DVEditEvent2&)>& (DVEdit2::*emitter)();
};

class Edit : public testing::TestWithParam<EditRow> {};

TEST_P(Edit, KnowsItsTextBeforeTheProgramHears) {
    FakeBackend backend;
    DVEdit2 edit(nullptr, u"before");
    std::u16string heard;
    const auto listen = [&](const DVEditEvent2& event) { heard = edit.text() + event.text(); };
    edit.onEdit(listen);
    edit.onEditFinish(listen);
    (edit.*GetParam().emitter)().emit(DVEditEvent2(&edit, u"typed", 0, 0));
    EXPECT_EQ(heard, u"typedtyped");
    EXPECT_EQ(edit.text(), u"typed");
}

INSTANTIATE_TEST_SUITE_P(UserInput, Edit,
                         testing::Values(EditRow{"whileTyping", &DVEdit2::editEmitter},
                                         EditRow{"atTheEnd", &DVEdit2::editFinishedEmitter}),
                         [](const auto& row) { return std::string(row.param.name); });

// A handler may set another text: it is what stays.
TEST(UserInput, HandlerHasTheLastWord) {
    FakeBackend backend;
    DVEdit2 edit;
    edit.onEdit([&](const DVEditEvent2& event) { edit.setText(event.text() + u"!"); });
    edit.editEmitter().emit(DVEditEvent2(&edit, u"typed", 0, 0));
    EXPECT_EQ(edit.text(), u"typed!");
}

TEST(UserInput, SubscriptionEndsOneHandlerOnly) {
    FakeBackend backend;
    DVButton2 button;
    std::string log;
    WIRO::Subscription first = button.onClick([&] { log += "a"; });
    button.onClick(
        [&](const DVButtonClickEvent2& event) { log += event.button() == &button ? "b" : "?"; });
    first.disconnect();
    button.clickEmitter().emit(DVButtonClickEvent2(&button));
    EXPECT_EQ(log, "b");
}

TEST(UserInput, CloseRequestWithoutHandlerKeepsTheWindow) {
    FakeBackend backend;
    DVDialog2 dialog;
    dialog.destroyRequestEmitter().emit(DVWidgetEvent2(&dialog, false));
    EXPECT_TRUE(backend.implements(dialog));
    dialog.onCloseRequest([&] { dialog.close(); });
    dialog.destroyRequestEmitter().emit(DVWidgetEvent2(&dialog, false));
    EXPECT_FALSE(backend.implements(dialog));
}

}  // namespace
