#pragma once

#include "Document.h"
#include "Field.h"
#include "toolkit/DVCheckBox2.h"

namespace jsonpad {

/// A check box for true and false.
class SwitchField : public Field {
public:
    /// `onEdit` is called after each edit of the document, which outlives this object.
    SwitchField(DOVA::DVObject2& parent, Document& document, Document::Place place, Handler onEdit);

    DOVA::DVWidget2& widget() override { return m_box; }
    void show() override;

private:
    Document& m_document;
    const Document::Place m_place;
    DOVA::DVCheckBox2& m_box;
};

}  // namespace jsonpad
