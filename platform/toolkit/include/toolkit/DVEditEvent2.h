#pragma once

#include <string>
#include <utility>

namespace DOVA {

class DVEdit2;

/// The user changed the text of an edit, or finished changing it.
class DVEditEvent2 {
public:
    /// `position` and `length` are the changed range, in UTF-16 units, if the backend knows it;
    /// else both are 0.
    DVEditEvent2(DVEdit2* edit, std::u16string text, int position, int length)
        : m_edit(edit), m_text(std::move(text)), m_position(position), m_length(length) {}
    DVEdit2* edit() const { return m_edit; }
    /// The whole text.
    const std::u16string& text() const { return m_text; }
    int position() const { return m_position; }
    int length() const { return m_length; }

private:
    DVEdit2* m_edit;
    std::u16string m_text;
    int m_position;
    int m_length;
};

}  // namespace DOVA
