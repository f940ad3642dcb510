#pragma once

namespace DOVA {

class DVAbstractButton2;

/// The user pressed and released a button.
class DVButtonClickEvent2 {
public:
    explicit DVButtonClickEvent2(DVAbstractButton2* button) : m_button(button) {}
    DVAbstractButton2* button() const { return m_button; }

private:
    DVAbstractButton2* m_button;
};

}  // namespace DOVA
