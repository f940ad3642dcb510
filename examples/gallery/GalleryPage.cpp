#include "GalleryPage.h"

#include "toolkit/DVGroupBox2.h"

namespace gallery {

GalleryPage::GalleryPage(DOVA::DVTabContainer2* book, const std::u16string& name, EventLog& log)
    : DVTab2(book, name), m_log(log) {
    setLayout(&m_groups);
}

GalleryPage::~GalleryPage() {
    dismantle();
}

DOVA::DVBoxLayout2& GalleryPage::addGroup(const std::u16string& title) {
    auto& group = add<DOVA::DVGroupBox2>(m_groups, title);
    auto& rows = make<DOVA::DVBoxLayout2>();
    group.setLayout(&rows);
    return rows;
}

DOVA::DVBoxLayout2& GalleryPage::addRow(DOVA::DVLayout2& layout) {
    return add<DOVA::DVBoxLayout2>(layout, DOVA::Direction::LeftToRight);
}

DOVA::DVButton2& GalleryPage::addButton(DOVA::DVLayout2& layout, const std::u16string& label,
                                        std::function<void()> onClick) {
    auto& button = add<DOVA::DVButton2>(layout, label);
    button.onClick(std::move(onClick));
    return button;
}

}  // namespace gallery
