#pragma once

#include <string>
#include <vector>

#include "Document.h"
#include "Field.h"
#include "toolkit/DVComboBox2.h"

namespace jsonpad {

/// A list of the texts that a string may be. A text that is none of them, but is in the file, comes
/// last in the list, so that nothing is lost by choosing another one.
class ChoiceField : public Field {
public:
    /// `onEdit` is called after each edit of the document, which outlives this object.
    ChoiceField(DOVA::DVObject2& parent, Document& document, Document::Place place,
                std::vector<std::u16string> choices, Handler onEdit);

    DOVA::DVWidget2& widget() override { return m_box; }
    void show() override;

private:
    Document& m_document;
    const Document::Place m_place;
    std::vector<std::u16string> m_choices;
    DOVA::DVComboBox2& m_box;
};

}  // namespace jsonpad
