#pragma once

#include "ButtonsPage.h"
#include "ChoicesPage.h"
#include "EventLog.h"
#include "LayoutsPage.h"
#include "LooksPage.h"
#include "TabsPage.h"
#include "TextsPage.h"
#include "WindowsPage.h"
#include "WorkPage.h"
#include "toolkit/DVBoxLayout2.h"
#include "toolkit/DVDialog2.h"
#include "toolkit/DVGroupBox2.h"
#include "toolkit/DVPanel2.h"
#include "toolkit/DVTabContainer2.h"
#include "toolkit/DVText2.h"

namespace gallery {

/// The gallery's window: its pages, and below them what the user did last.
class GalleryDialog : public DOVA::DVDialog2 {
public:
    /// `host` outlives the dialog.
    explicit GalleryDialog(DOVA::runtime::Host& host);
    ~GalleryDialog() override;

private:
    void addBook();
    void addEvents();

    DOVA::DVBoxLayout2 m_rows;
    DOVA::DVPanel2 m_shelf{this};
    DOVA::DVBoxLayout2 m_shelfRows;
    DOVA::DVTabContainer2 m_book{&m_shelf};
    DOVA::DVGroupBox2 m_events{this, u"Events"};
    DOVA::DVBoxLayout2 m_eventRows;
    DOVA::DVText2 m_lastEvents{&m_events};
    EventLog m_log{m_lastEvents};
    ButtonsPage m_buttons{&m_book, m_log};
    TextsPage m_texts{&m_book, m_log};
    ChoicesPage m_choices{&m_book, m_log};
    LayoutsPage m_layouts{&m_book, m_log};
    TabsPage m_tabs{&m_book, m_log};
    LooksPage m_looks{&m_book, m_log};
    WindowsPage m_windows{&m_book, m_log};
    WorkPage m_work;
};

}  // namespace gallery
