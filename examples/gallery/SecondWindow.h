#pragma once

#include "toolkit/DVBoxLayout2.h"
#include "toolkit/DVButton2.h"
#include "toolkit/DVCheckBox2.h"
#include "toolkit/DVDialog2.h"
#include "toolkit/DVEdit2.h"
#include "toolkit/DVGridLayout2.h"
#include "toolkit/DVPanel2.h"
#include "toolkit/DVText2.h"

namespace gallery {

/// A window that the user can give another title and size. What closing means is for its owner to
/// say.
class SecondWindow : public DOVA::DVDialog2 {
public:
    /// A modal window keeps the user from all others.
    explicit SecondWindow(bool isModal);
    ~SecondWindow() override;

    DOVA::DVButton2& closeButton() { return m_close; }
    /// Whether the user wants to see a window that refuses to be closed.
    bool refusesToClose() const { return m_refusal.isChecked(); }

private:
    void arrange();
    void tellSize();

    DOVA::DVBoxLayout2 m_rows;
    DOVA::DVGridLayout2 m_grid;
    DOVA::DVText2 m_titleLabel{this, u"Title"};
    DOVA::DVEdit2 m_title{this};
    DOVA::DVText2 m_size{this, u"Pull at an edge of this window."};
    DOVA::DVCheckBox2 m_refusal{this, u"Refuse to close"};
    DOVA::DVPanel2 m_buttons{this};
    DOVA::DVBoxLayout2 m_buttonRow;
    DOVA::DVButton2 m_maximize{&m_buttons, u"Maximize"};
    DOVA::DVButton2 m_restore{&m_buttons, u"Restore"};
    DOVA::DVButton2 m_close{&m_buttons, u"Close"};
};

}  // namespace gallery
