#include "TabsPage.h"

#include "Words.h"
#include "toolkit/DVCheckBox2.h"
#include "toolkit/DVComboBox2.h"

namespace gallery {

namespace {

const std::vector<std::u16string> s_sides{u"above", u"below", u"left", u"right"};

/// By name, since a selection may be any number that the display reports.
DOVA::Position sideCalled(const std::u16string& name) {
    using DOVA::Position;
    return name == s_sides[1]   ? Position::South
           : name == s_sides[2] ? Position::West
           : name == s_sides[3] ? Position::East
                                : Position::North;
}

/// A page with a text in it, which belongs to the page.
void fill(DOVA::DVTab2& page, const std::u16string& text) {
    auto& rows = page.make<DOVA::DVBoxLayout2>();
    page.setLayout(&rows);
    rows.addWidget(&page.make<DOVA::DVText2>(text));
}

}  // namespace

TabsPage::TabsPage(DOVA::DVTabContainer2* book, EventLog& log) : GalleryPage(book, u"Tabs", log) {
    addSides();
    addDocuments();
}

TabsPage::~TabsPage() {
    dismantle();
}

void TabsPage::addSides() {
    auto& rows = addGroup(u"Tabs on any side");
    auto& tabs = add<DOVA::DVTabContainer2>(rows);
    for (const char16_t* name : {u"Spring", u"Summer", u"Autumn"}) {
        fill(tabs.make<DOVA::DVTab2>(name), std::u16string(name) + u" has three months.");
    }
    tabs.onCurrentChanged([this, &tabs] {
        if (const DOVA::DVTab2* season = tabs.currentTab()) {
            tell(u"It is " + season->name());
        }
    });
    auto& row = addRow(rows);
    auto& side = addLabelled<DOVA::DVComboBox2>(row, u"Tabs", s_sides);
    side.setSelection(0);
    side.onSelect([&tabs, &side] { tabs.setTabPosition(sideCalled(side.selectedItem())); });
    addButton(row, u"Back to spring", [&tabs] { tabs.setCurrentIndex(0); });
    addStates(addRow(rows), tabs);
}

// A page is hidden as a widget: setTabVisible() would hide the whole container.
void TabsPage::addStates(DOVA::DVLayout2& row, DOVA::DVTabContainer2& tabs) {
    auto& summer = add<DOVA::DVCheckBox2>(row, u"Enable summer");
    summer.setChecked(true);
    summer.onToggle([&tabs, &summer] { tabs.tab(1)->setTabEnabled(summer.isChecked()); });
    auto& autumn = add<DOVA::DVCheckBox2>(row, u"Show autumn");
    autumn.setChecked(true);
    autumn.onToggle([&tabs, &autumn] { tabs.tab(2)->setVisible(autumn.isChecked()); });
}

void TabsPage::addDocuments() {
    auto& rows = addGroup(u"Documents");
    m_documents = &add<DOVA::DVTabContainer2>(rows);
    m_documents->setTabsClosable(true);
    m_documents->setDocumentMode(true);
    m_documents->onCloseRequest(
        [this](const DOVA::DVTabContainerEvent2& event) { closeDocument(event.index()); });
    openDocument();
    openDocument();
    addButton(addRow(rows), u"Open one more", [this] {
        openDocument();
        m_documents->setCurrentIndex(static_cast<int>(m_pages.size()) - 1);
    });
}

// A new page is told with the whole container, so it is shown anew.
void TabsPage::openDocument() {
    const std::u16string name = u"Document " + number(static_cast<int>(m_pages.size()) + 1);
    auto& page = *m_pages.emplace_back(std::make_unique<DOVA::DVTab2>(m_documents, name));
    fill(page, u"This is " + name + u".");
    m_documents->show();
}

void TabsPage::closeDocument(int index) {
    const auto position = static_cast<std::size_t>(index);
    if (index < 0 || position >= m_pages.size() || !m_pages[position]) {
        return;
    }
    tell(u"Closed: " + m_pages[position]->name());
    m_pages[position].reset();
}

}  // namespace gallery
