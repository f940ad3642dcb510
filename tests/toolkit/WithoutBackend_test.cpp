// A program without any backend: every call is taken, every answer is a default.

#include <gtest/gtest.h>

#include <functional>
#include <string>

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

void useWidget(DVWidget2& widget, DVObject* parent) {
    widget.show();
    widget.hide();
    widget.raise();
    widget.refresh();
    widget.setFocus();
    widget.setVisible(true);
    widget.setEnabled(true);
    widget.setToolTip(u"tip");
    widget.setColor(ColorRole::Background, Color::fromRgb(1, 2, 3));
    widget.setPosition({1, 2, 3, 4});
    widget.moveTo({1, 2});
    widget.setMinimumSize({1, 2});
    widget.setMaximumSize({1, 2});
    widget.setPreferredSize({1, 2});
    widget.resize({1, 2});
    widget.setObjectName("name");
    widget.showMessage(u"error", u"title", u"body");
    widget.setParent(parent);
}

void expectDefaults(const DVWidget2& widget) {
    EXPECT_FALSE(widget.isVisible());
    EXPECT_FALSE(widget.isEnabled());
    EXPECT_EQ(widget.toolTip(), u"");
    EXPECT_EQ(widget.color(ColorRole::Background), Color());
    EXPECT_EQ(widget.position(), diagram::RectTemplate<int>());
    EXPECT_EQ(widget.minimumSize(), diagram::TSize<int>());
    EXPECT_EQ(widget.maximumSize(), diagram::TSize<int>());
    EXPECT_EQ(widget.preferredSize(), diagram::TSize<int>());
    EXPECT_EQ(widget.objectName(), "");
    EXPECT_EQ(widget.parent(), nullptr);
    EXPECT_TRUE(widget.children(true).empty());
}

TEST(WithoutBackend, WidgetsTakeEveryCall) {
    DVDialog2 dialog(nullptr, DialogFlag::Modal);
    DVPanel2 panel(&dialog, true);
    DVButton2 button(&dialog, u"label");
    DVCheckBox2 checkBox(&panel, u"label");
    DVEdit2 edit(&panel, u"text");
    DVText2 text(&panel, u"text");
    for (DVWidget2* widget : {static_cast<DVWidget2*>(&dialog), static_cast<DVWidget2*>(&panel),
                              static_cast<DVWidget2*>(&button), static_cast<DVWidget2*>(&checkBox),
                              static_cast<DVWidget2*>(&edit), static_cast<DVWidget2*>(&text)}) {
        useWidget(*widget, &dialog);
        expectDefaults(*widget);
    }
    button.setChecked(true);
    text.setBuddy(&edit);
    EXPECT_EQ(button.label(), u"");
    EXPECT_FALSE(button.isChecked());
    EXPECT_FALSE(button.isDefault());
    EXPECT_EQ(edit.text(), u"");
    EXPECT_EQ(text.text(), u"");
    EXPECT_EQ(text.buddy(), nullptr);
}

TEST(WithoutBackend, WindowsTakeEveryCall) {
    DVDialog2 dialog;
    dialog.setTitle(u"title");
    dialog.showNormal();
    dialog.showMinimized();
    dialog.showMaximized();
    dialog.setFrameGeometry({1, 2, 3, 4});
    dialog.setGeometry({1, 2, 3, 4});
    dialog.setIconWithPath(u"icon.png");
    dialog.move({1, 2});
    dialog.setModal(true);
    dialog.setTransient(true);
    dialog.sendAccKey(DVDialogAccel::Close);
    dialog.close();
    EXPECT_EQ(dialog.title(), u"");
    EXPECT_FALSE(dialog.isMinimized());
    EXPECT_FALSE(dialog.isMaximized());
    EXPECT_FALSE(dialog.isModal());
    EXPECT_EQ(dialog.frameGeometry(), diagram::RectTemplate<int>());
    EXPECT_EQ(dialog.geometry(), diagram::RectTemplate<int>());
    EXPECT_EQ(dialog.frameOffset(), diagram::RectTemplate<int>());
    EXPECT_EQ(dialog.layout(), nullptr);
}

TEST(WithoutBackend, LayoutsTakeEveryCall) {
    DVDialog2 dialog;
    DVBoxLayout2 box(&dialog);
    DVGridLayout2 grid(&dialog);
    DVButton2 button(&dialog);
    dialog.setLayout(&box);
    box.addWidget(&button);
    box.addWidget(&button, 2, Alignment::Center);
    grid.addWidget(&button, {0, 0, 1, 1});
    for (DVLayout2* layout : {static_cast<DVLayout2*>(&box), static_cast<DVLayout2*>(&grid)}) {
        layout->removeWidget(&button);
        layout->setSpacing(4);
        layout->invalidate();
        layout->refresh();
        EXPECT_EQ(layout->spacing(), 0);
        EXPECT_FALSE(layout->isEnabled());
    }
}

TEST(WithoutBackend, EventsStillReachTheProgram) {
    DVButton2 button;
    DVEdit2 edit;
    std::string log;
    button.onToggle([&] { log += "toggle;"; });
    edit.onEditFinish([&] { log += "finish;"; });
    button.toggleEmitter().emit(DVButtonToggleEvent2(&button, true));
    edit.editFinishedEmitter().emit(DVEditEvent2(&edit, u"typed", 0, 0));
    EXPECT_EQ(log, "toggle;finish;");
}

}  // namespace
