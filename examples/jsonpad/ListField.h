#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Document.h"
#include "Field.h"
#include "toolkit/DVBoxLayout2.h"
#include "toolkit/DVButton2.h"
#include "toolkit/DVGridLayout2.h"
#include "toolkit/DVGroupBox2.h"
#include "toolkit/DVPanel2.h"
#include "toolkit/DVText2.h"

namespace jsonpad {

/// The elements of a list, one row each, to edit, take out and add to. A window that is open gets
/// no new widgets, so there are spare rows, which stay hidden until they are needed.
class ListField : public Field {
public:
    /// Makes the field of an element.
    using MakeField =
        std::function<std::unique_ptr<Field>(DOVA::DVObject2& parent, Document::Place place)>;

    /// `first` is what a new element says, where that is not the list's to decide. `onEdit` is
    /// called after each edit of the document, which outlives this object; `onFull`, which may
    /// delete this object, when an element has no row to stand in.
    ListField(DOVA::DVObject2& parent, Document& document, std::size_t member,
              const MakeField& makeField, std::optional<std::u16string> first, Handler onEdit,
              Handler onFull);

    DOVA::DVWidget2& widget() override { return m_group; }
    void show() override;

private:
    struct Row {
        DOVA::DVText2& number;
        DOVA::DVPanel2& panel;
        std::unique_ptr<Field> field;
    };

    void addRow(const MakeField& makeField);
    void add();
    void remove(std::size_t element);

    Document& m_document;
    const std::size_t m_member;
    const std::optional<std::u16string> m_first;
    const Handler m_onEdit;
    const Handler m_onFull;
    DOVA::DVGroupBox2& m_group;
    DOVA::DVGridLayout2& m_grid;
    std::vector<Row> m_rows;
};

}  // namespace jsonpad
