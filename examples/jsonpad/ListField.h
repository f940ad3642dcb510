#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Document.h"
#include "Field.h"
#include "ListRow.h"
#include "toolkit/DVBoxLayout2.h"
#include "toolkit/DVGridLayout2.h"
#include "toolkit/DVGroupBox2.h"

namespace jsonpad {

/// The elements of a list, one row each, to edit, take out and add to.
class ListField : public Field {
public:
    /// `first` is what a new element says, where that is not the list's to decide. `onEdit` is
    /// called after each edit of the document, which outlives this object.
    ListField(DOVA::DVObject2& parent, Document& document, std::size_t member,
              ListRow::MakeField makeField, std::optional<std::u16string> first, Handler onEdit);

    DOVA::DVWidget2& widget() override { return m_group; }
    void show() override;

private:
    void dropRows();
    void addRows();
    void add();
    void remove(JsonList::Id element);

    Document& m_document;
    const std::size_t m_member;
    const ListRow::MakeField m_makeField;
    const std::optional<std::u16string> m_first;
    const Handler m_onEdit;
    DOVA::DVGroupBox2& m_group;
    DOVA::DVGridLayout2& m_grid;
    std::vector<std::unique_ptr<ListRow>> m_rows;
};

}  // namespace jsonpad
