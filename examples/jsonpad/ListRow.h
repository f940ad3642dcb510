#pragma once

#include <functional>
#include <memory>
#include <string>

#include "Document.h"
#include "Field.h"
#include "toolkit/DVBoxLayout2.h"
#include "toolkit/DVButton2.h"
#include "toolkit/DVContainer2.h"
#include "toolkit/DVGridLayout2.h"
#include "toolkit/DVPanel2.h"
#include "toolkit/DVText2.h"

namespace jsonpad {

/// The row of one element, as long as there is that element: what a user still does in a row that
/// is gone reaches nobody. So it needs no care that the page, on a slow line, is behind.
class ListRow {
public:
    /// Makes the field of an element.
    using MakeField =
        std::function<std::unique_ptr<Field>(DOVA::DVObject2& parent, Document::Place place)>;

    /// Puts the row at the end of `grid`, which stands in `owner`. `onRemove` may delete the row.
    ListRow(DOVA::DVContainer2& owner, DOVA::DVGridLayout2& grid, Document::Place place,
            const MakeField& makeField, Field::Handler onRemove);

    JsonList::Id element() const { return *m_place.element; }
    /// Shows what the document says, and the element's position, from 0.
    void show(std::size_t position);
    /// Has a page that is open already take in the row.
    void appear();

private:
    const Document::Place m_place;
    DOVA::DVText2 m_number;
    DOVA::DVPanel2 m_panel;
    DOVA::DVBoxLayout2 m_rows;
    DOVA::DVBoxLayout2 m_row;
    DOVA::DVButton2 m_remove;
    const std::unique_ptr<Field> m_field;
};

}  // namespace jsonpad
