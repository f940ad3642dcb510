#include "ListRow.h"

#include <utility>

#include "json/JsonString.h"

namespace jsonpad {

ListRow::ListRow(DOVA::DVContainer2& owner, DOVA::DVGridLayout2& grid, Document::Place place,
                 const MakeField& makeField, Field::Handler onRemove)
    : m_place(place),
      m_number(&owner),
      m_panel(&owner),
      m_remove(&m_panel, u"Remove"),
      m_field(makeField(m_panel, place)) {
    m_panel.setLayout(&m_rows);
    m_rows.addWidget(&m_row);
    m_row.addWidget(&m_field->widget());
    m_row.addWidget(&m_remove);
    m_remove.onClick(std::move(onRemove));
    m_number.setBuddy(&m_field->widget());
    grid.addWidget(&m_number);
    grid.addWidget(&m_panel);
}

void ListRow::show(std::size_t position) {
    m_number.setText(toUtf16(std::to_string(position + 1)));
    m_field->show();
}

void ListRow::appear() {
    m_number.show();
    m_panel.show();
}

}  // namespace jsonpad
