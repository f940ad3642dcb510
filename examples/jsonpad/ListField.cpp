#include "ListField.h"

#include <algorithm>
#include <utility>

#include "FieldTexts.h"
#include "toolkit/DVButton2.h"

namespace jsonpad {

ListField::ListField(DOVA::DVObject2& parent, Document& document, std::size_t member,
                     ListRow::MakeField makeField, std::optional<std::u16string> first,
                     Handler onEdit)
    : m_document(document),
      m_member(member),
      m_makeField(std::move(makeField)),
      m_first(std::move(first)),
      m_onEdit(std::move(onEdit)),
      m_group(parent.make<DOVA::DVGroupBox2>(shortened(document.members()[member].key))),
      m_grid(m_group.make<DOVA::DVGridLayout2>()) {
    auto& rows = m_group.make<DOVA::DVBoxLayout2>();
    m_group.setLayout(&rows);
    rows.addWidget(&m_grid);
    addRows();
    auto& buttons = m_group.make<DOVA::DVBoxLayout2>();
    auto& button = m_group.make<DOVA::DVButton2>(u"Add");
    button.onClick([this] { add(); });
    buttons.addWidget(&button);
    rows.addWidget(&buttons);
}

/// The rows keep the elements' order: from the first one on that is not the element's in its place,
/// all go.
void ListField::dropRows() {
    const auto isGone = [this](const auto& row) {
        return !m_document.contains({m_member, row->element()});
    };
    m_rows.erase(std::remove_if(m_rows.begin(), m_rows.end(), isGone), m_rows.end());
    const auto& elements = m_document.elements(m_member);
    const auto differs = std::mismatch(
        m_rows.begin(), m_rows.end(), elements.begin(), elements.end(),
        [](const auto& row, const auto& element) { return row->element() == element.id; });
    m_rows.erase(differs.first, m_rows.end());
}

void ListField::addRows() {
    const auto& elements = m_document.elements(m_member);
    while (m_rows.size() < elements.size()) {
        const JsonList::Id element = elements[m_rows.size()].id;
        m_rows.push_back(std::make_unique<ListRow>(m_group, m_grid,
                                                   Document::Place{m_member, element}, m_makeField,
                                                   [this, element] { remove(element); }));
        m_rows.back()->appear();
    }
}

void ListField::show() {
    dropRows();
    addRows();
    for (std::size_t position = 0; position < m_rows.size(); ++position) {
        m_rows[position]->show(position);
    }
}

void ListField::add() {
    m_document.addElement(m_member);
    if (m_first) {
        m_document.enter({m_member, m_document.elements(m_member).back().id}, *m_first);
    }
    show();
    m_onEdit();
}

void ListField::remove(JsonList::Id element) {
    m_document.removeElement(m_member, element);
    show();
    m_onEdit();
}

}  // namespace jsonpad
