#pragma once

#include "Document.h"
#include "Field.h"
#include "toolkit/DVEdit2.h"

namespace jsonpad {

/// A line for a string or a number; a number that is none is marked. An element of a list may be
/// something else as well, which is shown and cannot be typed over.
class TextField : public Field {
public:
    /// `onEdit` is called after each edit of the document, which outlives this object.
    TextField(DOVA::DVObject2& parent, Document& document, Document::Place place, Handler onEdit);

    DOVA::DVWidget2& widget() override { return m_edit; }
    void show() override;

private:
    bool isEditable() const;
    void mark();

    Document& m_document;
    const Document::Place m_place;
    DOVA::DVEdit2& m_edit;
};

}  // namespace jsonpad
