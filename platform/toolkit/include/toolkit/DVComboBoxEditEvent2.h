#pragma once

#include <string>
#include <utility>

namespace DOVA {

class DVComboBox2;

/// The user typed in the field of an editable combo box.
class DVComboBoxEditEvent2 {
public:
    DVComboBoxEditEvent2(DVComboBox2* comboBox, std::u16string text, int cause)
        : m_comboBox(comboBox), m_text(std::move(text)), m_cause(cause) {}
    DVComboBox2* comboBox() const { return m_comboBox; }
    /// The whole text of the field.
    const std::u16string& text() const { return m_text; }
    /// What made the change: 0 for the user.
    int cause() const { return m_cause; }

private:
    DVComboBox2* m_comboBox;
    std::u16string m_text;
    int m_cause;
};

}  // namespace DOVA
