#include "ButtonsPage.h"

#include "WebOnly.h"
#include "toolkit/DVCheckBox2.h"

namespace gallery {

ButtonsPage::ButtonsPage(DOVA::DVTabContainer2* book, EventLog& log)
    : GalleryPage(book, u"Buttons", log) {
    addPushButtons();
    addIcons();
    addCheckableButton();
    addCheckBoxes();
}

void ButtonsPage::addPushButtons() {
    auto& row = addRow(addGroup(u"Push buttons"));
    auto& apply = addButton(row, u"Apply", [this] { tell(u"Apply was clicked"); });
    apply.setDefault(true);
    auto& sleeper = addButton(row, u"Asleep", [this] { tell(u"The sleeper was clicked"); });
    sleeper.setEnabled(false);
    addButton(row, u"Wake it", [&sleeper] {
        sleeper.setEnabled(true);
        sleeper.setLabel(u"Awake");
    });
}

void ButtonsPage::addIcons() {
    auto& row = addRow(addGroup(u"Icons"));
    auto& print = addButton(row, u"Print", [this] { tell(u"Print was clicked"); });
    setIcon(print, "printer.svg");
    auto& favourite = addButton(row, u"", [this] { tell(u"The star was clicked"); });
    setIcon(favourite, "star.svg");
    favourite.setToolTip(u"Favourite");
    addButton(row, u"Swap the icons", [&print, &favourite] {
        setIcon(print, "star.svg");
        setIcon(favourite, "printer.svg");
    });
}

void ButtonsPage::addCheckableButton() {
    auto& row = addRow(addGroup(u"A button that stays down"));
    auto& bold = add<DOVA::DVButton2>(row, u"Bold");
    setCheckable(bold, true);
    bold.onToggle([this](const DOVA::DVButtonToggleEvent2& event) {
        tell(event.checked() ? u"Bold is down" : u"Bold is up");
    });
    addButton(row, u"Put it up", [&bold] { bold.setChecked(false); });
    addButton(row, u"Put it down", [&bold] { bold.setChecked(true); });
}

void ButtonsPage::addCheckBoxes() {
    auto& rows = addGroup(u"Check boxes");
    auto& news = add<DOVA::DVCheckBox2>(rows, u"Send me news");
    auto& weekly = add<DOVA::DVCheckBox2>(rows, u"Once a week is enough");
    weekly.setChecked(true);
    weekly.setEnabled(false);
    news.onToggle([this, &news, &weekly] {
        weekly.setEnabled(news.isChecked());
        tell(news.isChecked() ? u"News are wanted" : u"News are not wanted");
    });
    addButton(addRow(rows), u"Check both", [&news, &weekly] {
        news.setChecked(true);
        weekly.setChecked(true);
        weekly.setEnabled(true);
    });
}

}  // namespace gallery
