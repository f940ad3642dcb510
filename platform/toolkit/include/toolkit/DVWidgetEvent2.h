#pragma once

namespace DOVA {

class DVWidget2;

/// Something happened to a widget that is told by which one it is, such as a close request.
class DVWidgetEvent2 {
public:
    DVWidgetEvent2(DVWidget2* widget, bool flag) : m_widget(widget), m_flag(flag) {}
    DVWidget2* widget() const { return m_widget; }
    /// True when the program itself is the cause.
    bool flag() const { return m_flag; }

private:
    DVWidget2* m_widget;
    bool m_flag;
};

}  // namespace DOVA
