#include "SwitchField.h"

#include <utility>

namespace jsonpad {

SwitchField::SwitchField(DOVA::DVObject2& parent, Document& document, Document::Place place,
                         Handler onEdit)
    : m_document(document), m_place(place), m_box(parent.make<DOVA::DVCheckBox2>()) {
    m_box.onToggle([this, onEdit = std::move(onEdit)](const DOVA::DVButtonToggleEvent2& event) {
        m_document.turn(m_place, event.checked());
        onEdit();
    });
}

void SwitchField::show() {
    m_box.setChecked(m_document.text(m_place) == u"true");
}

}  // namespace jsonpad
