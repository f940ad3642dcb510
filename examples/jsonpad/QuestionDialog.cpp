#include "QuestionDialog.h"

#include <utility>

#include "toolkit/DVButton2.h"

namespace jsonpad {

QuestionDialog::QuestionDialog(const std::u16string& title, const std::u16string& question,
                               Answer onCancel)
    : m_question(this, question), m_buttons(this), m_onCancel(std::move(onCancel)) {
    setTitle(title);
    setModal(true);
    setLayout(&m_rows);
    m_rows.addWidget(&m_question);
    m_rows.addWidget(&m_buttons);
    m_buttons.setButtonPanel(true);
    m_buttons.setLayout(&m_buttonRow);
    onCloseRequest([answer = m_onCancel] { answer(); });
}

QuestionDialog::~QuestionDialog() {
    dismantle();
}

void QuestionDialog::addAnswer(const std::u16string& label, Answer answer) {
    addButton(label, std::move(answer), !std::exchange(m_hasAnswer, true));
}

void QuestionDialog::addButton(const std::u16string& label, Answer answer, bool isDefault) {
    auto& button = m_buttons.make<DOVA::DVButton2>(label);
    button.setDefault(isDefault);
    button.onClick(std::move(answer));
    m_buttonRow.addWidget(&button);
}

void QuestionDialog::ask() {
    addButton(u"Cancel", m_onCancel, false);
    show();
}

}  // namespace jsonpad
