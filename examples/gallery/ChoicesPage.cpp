#include "ChoicesPage.h"

#include <vector>

#include "WebOnly.h"
#include "Words.h"
#include "toolkit/DVEdit2.h"

namespace gallery {

namespace {

using Items = std::vector<std::u16string>;

}  // namespace

ChoicesPage::ChoicesPage(DOVA::DVTabContainer2* book, EventLog& log)
    : GalleryPage(book, u"Choices", log) {
    addFixed();
    addEditable();
    addChanging();
}

void ChoicesPage::addFixed() {
    auto& row = addRow(addGroup(u"To choose from"));
    auto& size = addLabelled<DOVA::DVComboBox2>(row, u"Size", Items{u"small", u"medium", u"large"});
    size.setSelection(1);
    size.onSelect([this](const DOVA::DVComboBoxSelectEvent2& event) {
        tell(u"Size " + number(event.index()) + u" is " + event.text());
    });
    addButton(row, u"Next size", [&size] {
        size.setSelection(size.selection() < size.count() - 1 ? size.selection() + 1 : 0);
    });
}

void ChoicesPage::addEditable() {
    auto& grid = add<DOVA::DVGridLayout2>(addGroup(u"To choose from or to type in"));
    auto& drink = addLabelled<DOVA::DVComboBox2>(grid, u"Drink", Items{u"tea", u"coffee"});
    drink.setEditable(true);
    setPlaceholder(drink, u"Choose, or type another one");
    drink.onSelect([this, &drink] { tell(u"Chosen: " + drink.selectedItem()); });
    drink.onEdit(
        [this](const DOVA::DVComboBoxEditEvent2& event) { tell(u"Drink: " + event.text()); });
    drink.onEditFinish(
        [this](const DOVA::DVComboBoxEditEvent2& event) { tell(u"The drink is " + event.text()); });
}

void ChoicesPage::addChanging() {
    auto& rows = addGroup(u"Items come and go");
    auto& grid = add<DOVA::DVGridLayout2>(rows);
    auto& guests = addLabelled<DOVA::DVComboBox2>(grid, u"Guests", Items{u"Ada", u"Grace"});
    guests.setSelection(0);
    guests.onSelect([this, &guests] { tell(u"Guest: " + guests.selectedItem()); });
    auto& name = addLabelled<DOVA::DVEdit2>(grid, u"New guest", u"Jana");
    auto& row = addRow(rows);
    addButton(row, u"Append", [&guests, &name] { guests.addItem(name.text()); });
    addButton(row, u"Put first", [&guests, &name] { guests.insertItems(0, {name.text()}); });
    addItemButtons(row, guests);
}

void ChoicesPage::addItemButtons(DOVA::DVLayout2& row, DOVA::DVComboBox2& guests) {
    addButton(row, u"Remove", [this, &guests] { removeSelected(guests); });
    addButton(row, u"Clear", [&guests] {
        guests.clear();
        guests.setSelection(-1);
    });
    addButton(row, u"How many?", [this, &guests] { tell(number(guests.count()) + u" guests"); });
}

// The selection is a number and stays as it is when items go, so the program says what is next.
void ChoicesPage::removeSelected(DOVA::DVComboBox2& guests) {
    tell(u"Gone: " + guests.selectedItem());
    guests.removeItem(guests.selection());
    guests.setSelection(-1);
}

}  // namespace gallery
