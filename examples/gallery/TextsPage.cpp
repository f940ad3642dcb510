#include "TextsPage.h"

#include "WebOnly.h"

namespace gallery {

TextsPage::TextsPage(DOVA::DVTabContainer2* book, EventLog& log)
    : GalleryPage(book, u"Texts", log) {
    addFields();
    addTexts();
}

void TextsPage::addFields() {
    auto& rows = addGroup(u"Fields");
    auto& grid = add<DOVA::DVGridLayout2>(rows);
    auto& name = addLabelled<DOVA::DVEdit2>(grid, u"Name", u"Ada");
    auto& nickname = addLabelled<DOVA::DVEdit2>(grid, u"Nickname");
    setPlaceholder(nickname, u"What friends call you");
    auto& account = addLabelled<DOVA::DVEdit2>(grid, u"Account", u"guest");
    account.setEnabled(false);
    putInCapitals(addLabelled<DOVA::DVEdit2>(grid, u"Plate"));
    name.onEdit([this](const DOVA::DVEditEvent2& event) { tell(u"Name: " + event.text()); });
    name.onEditFinish([this, &name] { tell(u"The name is " + name.text()); });
    nickname.onEditFinish([this, &nickname] { tell(u"The nickname is " + nickname.text()); });
    addNameButtons(rows, name);
}

/// A handler may answer typing with another text: it is shown once the user's last key is in it.
void TextsPage::putInCapitals(DOVA::DVEdit2& edit) {
    edit.onEdit([&edit] {
        std::u16string text = edit.text();
        for (char16_t& letter : text) {
            const bool isSmall = letter >= u'a' && letter <= u'z';
            letter = isSmall ? static_cast<char16_t>(letter - u'a' + u'A') : letter;
        }
        edit.setText(text);
    });
}

void TextsPage::addNameButtons(DOVA::DVLayout2& rows, DOVA::DVEdit2& name) {
    auto& row = addRow(rows);
    addButton(row, u"Fill in Grace", [&name] { name.setText(u"Grace"); });
    addButton(row, u"Empty it", [&name] { name.setText(u""); });
    addButton(row, u"Go there", [&name] { name.setFocus(); });
}

void TextsPage::addTexts() {
    auto& rows = addGroup(u"Texts");
    add<DOVA::DVText2>(rows, u"A text has as many lines as it needs:\none,\ntwo,\nthree.");
    add<DOVA::DVText2>(
        rows, u"<b>Markup</b> is shown as it stands, Ελληνικά and עברית as they are read.");
    auto& counter = add<DOVA::DVText2>(rows, u"*");
    auto& row = addRow(rows);
    addButton(row, u"One star more", [&counter] { counter.setText(counter.text() + u"*"); });
}

}  // namespace gallery
