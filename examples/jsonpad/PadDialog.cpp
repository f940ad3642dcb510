#include "PadDialog.h"

#include <algorithm>
#include <string>
#include <utility>

#include "json/JsonString.h"

namespace jsonpad {

PadDialog::PadDialog(Document& document, const JsonSchema& schema, std::u16string fileName)
    : m_document(document),
      m_fileName(std::move(fileName)),
      m_form(*this, m_rows, document, schema, [this] { showState(); }),
      m_status(this),
      m_buttons(this),
      m_save(&m_buttons, u"Save"),
      m_revert(&m_buttons, u"Revert"),
      m_close(&m_buttons, u"Close") {
    setMinimumSize({440, -1});
    setLayout(&m_rows);
    m_rows.addWidget(&m_status);
    m_rows.addWidget(&m_buttons);
    addButtons();
    showState();
}

PadDialog::~PadDialog() {
    dismantle();
}

void PadDialog::addButtons() {
    m_buttons.setButtonPanel(true);
    m_buttons.setLayout(&m_buttonRow);
    m_buttonRow.addWidget(&m_save);
    m_buttonRow.addWidget(&m_revert);
    m_buttonRow.addWidget(&m_close);
    m_save.setDefault(true);
}

void PadDialog::showState() {
    showTitle(m_document.isModified() ? u" (modified)" : u"");
    m_status.setText(status());
}

void PadDialog::showSaved() {
    showTitle(u" (saved)");
}

void PadDialog::showTitle(const std::u16string& state) {
    if (std::exchange(m_title, m_fileName + state) != m_title) {
        setTitle(m_title);
    }
}

std::u16string PadDialog::status() const {
    const auto& all = m_document.members();
    const auto count = std::count_if(all.begin(), all.end(), [](const JsonFile::Member& member) {
        return member.parent == JsonOutline::root;
    });
    const std::vector<std::size_t> invalid(m_document.invalid().begin(),
                                           m_document.invalid().end());
    return toUtf16(!invalid.empty() ? "Not a number: " + m_document.names(invalid)
                   : count == 1     ? "1 member"
                                    : std::to_string(count) + " members");
}

void PadDialog::showAgain(const std::vector<std::size_t>& members) {
    m_form.show(members);
    showState();
}

}  // namespace jsonpad
