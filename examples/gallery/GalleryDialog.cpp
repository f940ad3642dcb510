#include "GalleryDialog.h"

namespace gallery {

GalleryDialog::GalleryDialog(DOVA::runtime::Host& host) : m_work(&m_book, m_log, host) {
    setTitle(u"Gallery");
    setIconWithPath(u"star.svg");
    setLayout(&m_rows);
    addBook();
    addEvents();
}

// As large as its largest page, so that the events below it stay where they are; and in a panel,
// which may scroll instead of the whole window where that is low.
void GalleryDialog::addBook() {
    m_rows.addWidget(&m_shelf);
    m_shelf.setLayout(&m_shelfRows);
    m_shelfRows.addWidget(&m_book);
    m_book.setMinimumSize({580, 515});
}

void GalleryDialog::addEvents() {
    m_rows.addWidget(&m_events);
    m_events.setFlat(true);
    m_events.setLayout(&m_eventRows);
    m_eventRows.addWidget(&m_lastEvents);
}

GalleryDialog::~GalleryDialog() {
    dismantle();
}

}  // namespace gallery
