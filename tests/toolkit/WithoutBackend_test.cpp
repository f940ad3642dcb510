// A program without any backend: every call is taken, every answer is a default.

#include <gtest/gtest.h>

#include "toolkit/DVBoxLayout2.h"
#include "toolkit/DVButton2.h"
#include "toolkit/DVCheckBox2.h"
#include "toolkit/DVDialog2.h"
#include "toolkit/DVEdit2.h"
#include "toolkit/DVGridLayout2.h"
#include "toolkit/DVPanel2.h"
#include "toolkit/DVText2.h"

namespace {

using namespace DOVA;

TEST(WithoutBackend, EveryFrontObjectTakesCallsAndAnswersDefaults) {
    DVDialog2 dialog(nullptr, DialogFlag::Modal);
    DVPanel2 panel(&dialog, true);
    DVButton2 button(&dialog, u"label");
    const DVCheckBox2 checkBox(&panel, u"label");
    DVEdit2 edit(&panel, u"text");
    DVText2 text(&panel, u"text");
    DVBoxLayout2 box(&dialog);
    DVGridLayout2 grid(&panel);
    dialog.setLayout(&box);
    box.addWidget(&button, 2, Alignment::Center);
    grid.addWidget(&text, {0, 0, 1, 1});
    text.setBuddy(&edit);
    button.showMessage(u"error", u"title", u"body");
    dialog.show();
    dialog.close();
    EXPECT_TRUE(!dialog.layout() && !dialog.isModal() && panel.children(true).empty());
    EXPECT_TRUE(!button.parent() && !text.buddy() && edit.text().empty() && box.spacing() == 0);
    EXPECT_TRUE(button.position() == diagram::RectTemplate<int>() && checkBox.label().empty());
}

}  // namespace
