#include "WindowsPage.h"

#include <vector>

#include "toolkit/DVCheckBox2.h"
#include "toolkit/DVComboBox2.h"
#include "toolkit/DVEdit2.h"

namespace gallery {

namespace {

const std::vector<std::u16string> s_levels{u"information", u"warning", u"error", u"question"};

}  // namespace

WindowsPage::WindowsPage(DOVA::DVTabContainer2* book, EventLog& log)
    : GalleryPage(book, u"Windows", log) {
    addWindows();
    addMessages();
}

WindowsPage::~WindowsPage() {
    dismantle();
}

void WindowsPage::addWindows() {
    auto& row = addRow(addGroup(u"A second window"));
    addButton(row, u"Open it", [this] { open(false); });
    addButton(row, u"Open it modal", [this] { open(true); });
    addButton(row, u"Close it", [this] { close(); });
}

void WindowsPage::open(bool isModal) {
    m_window = std::make_unique<SecondWindow>(isModal);
    m_window->closeButton().onClick([this] { close(); });
    m_window->onCloseRequest([this] { closeUnlessRefused(); });
    m_window->show();
    tell(isModal ? u"A modal window is open" : u"A window is open");
}

// It was asked by its X, or because the page goes. Without an answer the X would be dead from now
// on.
void WindowsPage::closeUnlessRefused() {
    if (m_window->refusesToClose()) {
        m_window->stayOpen();
        tell(u"The window refuses to close");
    } else {
        close();
    }
}

void WindowsPage::close() {
    if (m_window) {
        m_window.reset();
        tell(u"The window is closed");
    }
}

void WindowsPage::addMessages() {
    auto& rows = addGroup(u"Message boxes");
    auto& grid = add<DOVA::DVGridLayout2>(rows);
    auto& level = addLabelled<DOVA::DVComboBox2>(grid, u"Level", s_levels);
    level.setSelection(0);
    auto& body = addLabelled<DOVA::DVEdit2>(grid, u"Message", u"The kettle boils.");
    auto& modal = add<DOVA::DVCheckBox2>(rows, u"Must be answered first");
    addButton(addRow(rows), u"Say it", [this, &level, &body, &modal] {
        showMessage(level.selectedItem(), u"From the gallery", body.text(), modal.isChecked());
    });
}

}  // namespace gallery
