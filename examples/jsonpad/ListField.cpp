#include "ListField.h"

#include <utility>

#include "FieldTexts.h"
#include "JsonString.h"

namespace jsonpad {

namespace {

constexpr std::size_t s_spareRows = 4;

}  // namespace

ListField::ListField(DOVA::DVObject2& parent, Document& document, std::size_t member,
                     const MakeField& makeField, std::optional<std::u16string> first,
                     Handler onEdit, Handler onFull)
    : m_document(document),
      m_member(member),
      m_first(std::move(first)),
      m_onEdit(std::move(onEdit)),
      m_onFull(std::move(onFull)),
      m_group(parent.make<DOVA::DVGroupBox2>(shortened(document.members()[member].key))),
      m_grid(m_group.make<DOVA::DVGridLayout2>()) {
    auto& rows = m_group.make<DOVA::DVBoxLayout2>();
    m_group.setLayout(&rows);
    rows.addWidget(&m_grid);
    const std::size_t count = document.elements(member).size() + s_spareRows;
    while (m_rows.size() < count) {
        addRow(makeField);
    }
    auto& buttons = m_group.make<DOVA::DVBoxLayout2>();
    auto& button = m_group.make<DOVA::DVButton2>(u"Add");
    button.onClick([this] { add(); });
    buttons.addWidget(&button);
    rows.addWidget(&buttons);
}

/// A number, and beside it the field with its button.
void ListField::addRow(const MakeField& makeField) {
    const std::size_t element = m_rows.size();
    auto& number = m_group.make<DOVA::DVText2>(toUtf16(std::to_string(element + 1)));
    auto& panel = m_group.make<DOVA::DVPanel2>();
    auto& outer = panel.make<DOVA::DVBoxLayout2>();
    auto& inner = panel.make<DOVA::DVBoxLayout2>();
    panel.setLayout(&outer);
    outer.addWidget(&inner);
    std::unique_ptr<Field> field = makeField(panel, {m_member, element});
    auto& button = panel.make<DOVA::DVButton2>(u"Remove");
    button.onClick([this, element] { remove(element); });
    inner.addWidget(&field->widget());
    inner.addWidget(&button);
    number.setBuddy(&field->widget());
    m_grid.addWidget(&number);
    m_grid.addWidget(&panel);
    m_rows.push_back({number, panel, std::move(field)});
}

void ListField::show() {
    const std::size_t count = m_document.elements(m_member).size();
    for (std::size_t element = 0; element < m_rows.size(); ++element) {
        const Row& row = m_rows[element];
        const bool isUsed = element < count;
        if (isUsed) {
            row.field->show();
        }
        if (row.panel.isVisible() != isUsed) {
            row.number.setVisible(isUsed);
            row.panel.setVisible(isUsed);
        }
    }
}

void ListField::add() {
    m_document.addElement(m_member);
    const std::size_t count = m_document.elements(m_member).size();
    if (m_first) {
        m_document.enter({m_member, count - 1}, *m_first);
    }
    if (count > m_rows.size()) {
        // A copy, which lives on when this object does not.
        const Handler onFull = m_onFull;
        return onFull();
    }
    show();
    m_onEdit();
}

void ListField::remove(std::size_t element) {
    if (element < m_document.elements(m_member).size()) {
        m_document.removeElement(m_member, element);
        show();
        m_onEdit();
    }
}

}  // namespace jsonpad
