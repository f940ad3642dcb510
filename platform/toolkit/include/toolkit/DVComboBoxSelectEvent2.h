#pragma once

#include <string>
#include <utility>

namespace DOVA {

class DVComboBox2;

/// The user chose an item of a combo box.
class DVComboBoxSelectEvent2 {
public:
    DVComboBoxSelectEvent2(DVComboBox2* comboBox, int index, std::u16string text, int cause)
        : m_comboBox(comboBox), m_index(index), m_text(std::move(text)), m_cause(cause) {}
    DVComboBox2* comboBox() const { return m_comboBox; }
    /// The position of the item, from 0, as the display reports it.
    int index() const { return m_index; }
    /// The item's text.
    const std::u16string& text() const { return m_text; }
    /// What made the choice: 0 for the user.
    int cause() const { return m_cause; }

private:
    DVComboBox2* m_comboBox;
    int m_index;
    std::u16string m_text;
    int m_cause;
};

}  // namespace DOVA
