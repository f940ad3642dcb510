#include "TextField.h"

#include <utility>

#include "FieldTexts.h"

namespace jsonpad {

namespace {

const std::u16string s_notANumber = u"This is not a number, so it is not saved.";

}  // namespace

TextField::TextField(DOVA::DVObject2& parent, Document& document, Document::Place place,
                     Handler onEdit)
    : m_document(document), m_place(place), m_edit(parent.make<DOVA::DVEdit2>()) {
    m_edit.onEdit([this, onEdit = std::move(onEdit)](const DOVA::DVEditEvent2& event) {
        m_document.enter(m_place, event.text());
        mark();
        onEdit();
    });
}

bool TextField::isEditable() const {
    const JsonKind kind = m_document.kind(m_place);
    return kind == JsonKind::Number ||
           (kind == JsonKind::String && fitsField(m_document.text(m_place)));
}

void TextField::show() {
    const bool editable = isEditable();
    m_edit.setEnabled(editable);
    m_edit.setText(editable ? m_document.text(m_place) : shortened(m_document.text(m_place)));
    mark();
}

void TextField::mark() {
    const std::u16string toolTip = m_document.isValid(m_place) ? std::u16string() : s_notANumber;
    if (m_edit.toolTip() != toolTip) {
        m_edit.setToolTip(toolTip);
    }
}

}  // namespace jsonpad
