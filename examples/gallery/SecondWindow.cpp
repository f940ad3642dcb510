#include "SecondWindow.h"

#include "Words.h"

namespace gallery {

SecondWindow::SecondWindow(bool isModal) {
    const std::u16string title = isModal ? u"Modal window" : u"Second window";
    setTitle(title);
    setModal(isModal);
    arrange();
    m_title.setText(title);
    m_title.onEdit([this] { setTitle(m_title.text()); });
    m_maximize.onClick([this] { showMaximized(); });
    m_restore.onClick([this] { showNormal(); });
    onResize([this] { tellSize(); });
}

SecondWindow::~SecondWindow() {
    dismantle();
}

void SecondWindow::arrange() {
    setLayout(&m_rows);
    m_rows.addWidget(&m_grid);
    m_rows.addWidget(&m_size);
    m_rows.addWidget(&m_refusal);
    m_rows.addWidget(&m_buttons);
    m_grid.addWidget(&m_titleLabel);
    m_grid.addWidget(&m_title);
    m_titleLabel.setBuddy(&m_title);
    m_buttons.setButtonPanel(true);
    m_buttons.setLayout(&m_buttonRow);
    m_buttonRow.addWidget(&m_maximize);
    m_buttonRow.addWidget(&m_restore);
    m_buttonRow.addWidget(&m_close);
}

void SecondWindow::tellSize() {
    const auto inside = geometry();
    m_size.setText(number(inside.width) + u" by " + number(inside.height) + u" pixels");
}

}  // namespace gallery
