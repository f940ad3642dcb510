#include "GalleryDialog.h"

namespace gallery {

GalleryDialog::GalleryDialog() {
    setTitle(u"Gallery");
    setIconWithPath(u"star.svg");
    setLayout(&m_rows);
    m_rows.addWidget(&m_book);
    m_rows.addWidget(&m_events);
    m_events.setFlat(true);
    m_events.setLayout(&m_eventRows);
    m_eventRows.addWidget(&m_lastEvents);
}

GalleryDialog::~GalleryDialog() {
    dismantle();
}

}  // namespace gallery
