#include "LayoutsPage.h"

#include "Words.h"
#include "toolkit/DVCheckBox2.h"
#include "toolkit/DVEdit2.h"
#include "toolkit/DVGroupBox2.h"

namespace gallery {

LayoutsPage::LayoutsPage(DOVA::DVTabContainer2* book, EventLog& log)
    : GalleryPage(book, u"Layouts", log) {
    addGroups();
    addBoxes();
    addGrid();
    addPanel();
}

void LayoutsPage::addGroups() {
    auto& rows = addGroup(u"Group boxes");
    auto& sample = add<DOVA::DVGroupBox2>(rows, u"Sample");
    auto& inside = make<DOVA::DVBoxLayout2>();
    sample.setLayout(&inside);
    auto& row = addRow(inside);
    auto& title = addLabelled<DOVA::DVEdit2>(row, u"Its title", u"Sample");
    title.onEdit([&sample](const DOVA::DVEditEvent2& event) { sample.setTitle(event.text()); });
    auto& flat = add<DOVA::DVCheckBox2>(row, u"Flat");
    flat.onToggle([this, &sample, &flat] {
        sample.setFlat(flat.isChecked());
        tell(sample.isFlat() ? u"The group is flat" : u"The group has a frame");
    });
}

// A page lays a box out upright and a box directly within it across, whatever its direction.
void LayoutsPage::addBoxes() {
    auto& row = addRow(addGroup(u"Box layouts: a row of columns"));
    addColumn(row, u"Left");
    addColumn(row, u"Middle");
    addColumn(row, u"Right");
}

void LayoutsPage::addColumn(DOVA::DVLayout2& row, const std::u16string& name) {
    auto& column = add<DOVA::DVBoxLayout2>(row, DOVA::Direction::TopToBottom);
    column.setSpacing(2);
    addButton(column, name + u" 1", [this, name] { tell(name + u" 1"); });
    addButton(column, name + u" 2", [this, name] { tell(name + u" 2"); });
    addButton(column, u"Spread", [&column] { column.setSpacing(column.spacing() + 6); });
}

// The cells are filled in the order of addition; their container says how many columns there are.
void LayoutsPage::addGrid() {
    constexpr int keys = 6;
    int columns[] = {3};
    auto& pad = add<DOVA::DVPanel2>(addGroup(u"A grid of three columns"));
    pad.setLayoutGrid(columns, 1);
    auto& grid = make<DOVA::DVGridLayout2>();
    pad.setLayout(&grid);
    for (int key = 1; key <= keys; ++key) {
        addButton(grid, number(key), [this, key] { tell(u"Key " + number(key)); });
    }
}

void LayoutsPage::addPanel() {
    auto& rows = addGroup(u"A panel of standard buttons");
    auto& panel = add<DOVA::DVPanel2>(rows);
    panel.setButtonPanel(true);
    auto& row = make<DOVA::DVBoxLayout2>(DOVA::Direction::LeftToRight);
    panel.setLayout(&row);
    addButton(row, u"Yes", [this] { tell(u"Yes"); });
    addButton(row, u"No", [this] { tell(u"No"); });
    auto& lock = add<DOVA::DVCheckBox2>(rows, u"Disable the panel");
    lock.onToggle([&panel, &lock] { panel.setEnabled(!lock.isChecked()); });
}

}  // namespace gallery
