#include "ChoiceField.h"

#include <algorithm>
#include <utility>

#include "FieldTexts.h"

namespace jsonpad {

ChoiceField::ChoiceField(DOVA::DVObject2& parent, Document& document, Document::Place place,
                         std::vector<std::u16string> choices, Handler onEdit)
    : m_document(document),
      m_place(place),
      m_choices(std::move(choices)),
      m_box(parent.make<DOVA::DVComboBox2>(m_choices)) {
    m_box.onSelect([this, onEdit = std::move(onEdit)] {
        const int index = m_box.selection();
        if (index >= 0 && index < static_cast<int>(m_choices.size())) {
            m_document.enter(m_place, m_choices[static_cast<std::size_t>(index)]);
            onEdit();
        }
    });
}

void ChoiceField::show() {
    const std::u16string& text = m_document.text(m_place);
    const auto found = std::find(m_choices.begin(), m_choices.end(), text);
    const auto index = static_cast<int>(found - m_choices.begin());
    if (found == m_choices.end()) {
        m_choices.push_back(text);
        m_box.addItem(shortened(text));
    }
    m_box.setSelection(index);
}

}  // namespace jsonpad
