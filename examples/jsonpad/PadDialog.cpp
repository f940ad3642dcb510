#include "PadDialog.h"

#include <string>
#include <utility>

#include "FieldTexts.h"
#include "JsonString.h"
#include "toolkit/DVCheckBox2.h"
#include "toolkit/DVEdit2.h"

namespace jsonpad {

namespace {

const std::u16string s_notANumber = u"This is not a number, so it is not saved.";

}  // namespace

PadDialog::PadDialog(Document& document, std::u16string fileName)
    : m_document(document),
      m_fileName(std::move(fileName)),
      m_status(this),
      m_buttons(this),
      m_save(&m_buttons, u"Save"),
      m_revert(&m_buttons, u"Revert"),
      m_close(&m_buttons, u"Close") {
    setLayout(&m_rows);
    m_rows.addWidget(&m_grid);
    m_rows.addWidget(&m_status);
    m_rows.addWidget(&m_buttons);
    addRows();
    addButtons();
    showState();
}

PadDialog::~PadDialog() {
    dismantle();
}

void PadDialog::addRows() {
    m_fields.reserve(m_document.members().size());
    for (std::size_t member = 0; member < m_document.members().size(); ++member) {
        auto& key = make<DOVA::DVText2>(shortened(m_document.members()[member].key));
        DOVA::DVWidget2& field = makeField(member);
        key.setBuddy(&field);
        m_grid.addWidget(&key);
        m_grid.addWidget(&field);
        m_fields.push_back(&field);
    }
}

DOVA::DVWidget2& PadDialog::makeField(std::size_t member) {
    switch (m_document.members()[member].kind) {
        case JsonKind::String:
            return fitsField(m_document.text(member)) ? makeEdit(member) : makeText(member);
        case JsonKind::Number:
            return makeEdit(member);
        case JsonKind::Boolean:
            return makeCheckBox(member);
        default:
            return makeText(member);
    }
}

DOVA::DVWidget2& PadDialog::makeEdit(std::size_t member) {
    auto& edit = make<DOVA::DVEdit2>(m_document.text(member));
    if (m_document.notNumbers().count(member) > 0) {
        edit.setToolTip(s_notANumber);
    }
    edit.onEdit([this, member](const DOVA::DVEditEvent2& event) {
        edited(member, m_document.enter(member, event.text()));
    });
    return edit;
}

DOVA::DVWidget2& PadDialog::makeCheckBox(std::size_t member) {
    auto& box = make<DOVA::DVCheckBox2>();
    box.setChecked(m_document.text(member) == u"true");
    box.onToggle([this, member](const DOVA::DVButtonToggleEvent2& event) {
        edited(member, m_document.enter(member, event.checked()));
    });
    return box;
}

DOVA::DVWidget2& PadDialog::makeText(std::size_t member) {
    return make<DOVA::DVText2>(shortened(m_document.text(member)));
}

void PadDialog::addButtons() {
    m_buttons.setButtonPanel(true);
    m_buttons.setLayout(&m_buttonRow);
    m_buttonRow.addWidget(&m_save);
    m_buttonRow.addWidget(&m_revert);
    m_buttonRow.addWidget(&m_close);
    m_save.setDefault(true);
}

void PadDialog::edited(std::size_t member, bool isValid) {
    const std::u16string toolTip = isValid ? std::u16string() : s_notANumber;
    if (m_fields[member]->toolTip() != toolTip) {
        m_fields[member]->setToolTip(toolTip);
    }
    showState();
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
    std::vector<std::size_t> members;
    for (const auto& [member, typed] : m_document.notNumbers()) {
        members.push_back(member);
    }
    const std::size_t all = m_document.members().size();
    return toUtf16(!members.empty() ? "Not a number: " + m_document.names(members)
                   : all == 1       ? "1 member"
                                    : std::to_string(all) + " members");
}

void PadDialog::showAgain(const std::vector<std::size_t>& members) {
    for (const std::size_t member : members) {
        const std::u16string& text = m_document.text(member);
        if (auto* edit = dynamic_cast<DOVA::DVEdit2*>(m_fields[member])) {
            edit->setText(text);
            edit->setToolTip({});
        } else if (auto* box = dynamic_cast<DOVA::DVCheckBox2*>(m_fields[member])) {
            box->setChecked(text == u"true");
        }
    }
    showState();
}

}  // namespace jsonpad
