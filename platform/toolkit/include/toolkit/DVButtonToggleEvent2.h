#pragma once

namespace DOVA {

class DVAbstractButton2;

/// The user switched a checkable button or a check box.
class DVButtonToggleEvent2 {
public:
    DVButtonToggleEvent2(DVAbstractButton2* button, bool checked)
        : m_button(button), m_checked(checked) {}
    DVAbstractButton2* button() const { return m_button; }
    /// The state after the switch.
    bool checked() const { return m_checked; }

private:
    DVAbstractButton2* m_button;
    bool m_checked;
};

}  // namespace DOVA
