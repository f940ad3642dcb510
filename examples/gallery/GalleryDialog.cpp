#include "GalleryDialog.h"

namespace gallery {

GalleryDialog::GalleryDialog() {
    setTitle(u"Gallery");
    setIconWithPath(u"star.svg");
    resize({600, 680});
    setLayout(&m_rows);
    addBook();
    addEvents();
}

// In a panel, which scrolls where the window is low: the events below it stay in sight.
void GalleryDialog::addBook() {
    m_rows.addWidget(&m_shelf);
    m_shelf.setLayout(&m_shelfRows);
    m_shelfRows.addWidget(&m_book);
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
