#pragma once

#include <string>

#include "toolkit/DVObject2.h"
#include "toolkit/DVWidget2Emitters.h"

namespace DOVA {

/// Anything visible. Every setter reaches the backend at once; a getter answers what the backend
/// knows. Sizes and positions are in toolkit pixels. What is set before the widget is shown holds
/// when it is, and goes on to hold when it, or what it is in, is shown again.
///
/// Handlers that the program connects with the on...() operations of the widget classes hear only
/// what a user can have done: an event of a widget that is out of reach does not come to them,
/// and the display is told again how the widget is. The emitters beside them carry every event, as
/// the backend reports it.
class DOVA_TOOLKIT_EXPORT DVWidget2 : public DVObject2 {
public:
    ~DVWidget2() override;

    /// Shows the widget, as it is now with everything below it, also after hide(). What is below a
    /// hidden widget appears with it, unless it is hidden itself. A window opens.
    void show();
    /// Hides the widget and with it everything below it, as setVisible(false).
    void hide();
    /// Brings the widget to the front.
    void raise();
    /// Has the widget drawn anew.
    void refresh();
    /// Moves the keyboard focus into the widget: to a control itself, else to the first control in
    /// it that can take it. On a widget that the display does not know yet it counts once it does,
    /// and of several the last one has it.
    void setFocus();
    /// Takes the widget from the display or back to it; sent each time. A window opens with true.
    void setVisible(bool visible);
    /// What the program wants: true from the start and until hide(). Says nothing about the widgets
    /// above, nor whether a page is there to show it.
    bool isVisible() const;
    void setEnabled(bool enabled);
    bool isEnabled() const;
    /// Whether a user can use the widget: it and everything above it is visible and enabled, it
    /// is on no tab page behind another, and no modal dialog shuts its window off. Says nothing
    /// about whether a page is there. Of an object without implementation nothing is known, which
    /// counts as true.
    bool isInReach() const;
    void setToolTip(const std::u16string& text);
    std::u16string toolTip() const;
    void setColor(ColorRole role, Color color);
    /// Not what was set: the web backend answers opaque white for the background, else the zero
    /// colour.
    Color color(ColorRole role) const;
    void setPosition(diagram::RectTemplate<int> position);
    diagram::RectTemplate<int> position() const;
    void moveTo(diagram::PointTemplate<int> point);
    /// A negative width or height leaves that dimension as it is; likewise setMaximumSize().
    void setMinimumSize(diagram::TSize<int> size);
    /// The least size in display pixels: times dpiScale(), truncated; likewise maximumSize().
    diagram::TSize<int> minimumSize() const;
    void setMaximumSize(diagram::TSize<int> size);
    diagram::TSize<int> maximumSize() const;
    void setPreferredSize(diagram::TSize<int> size);
    diagram::TSize<int> preferredSize() const;
    void resize(diagram::TSize<int> size);
    /// A name for programs and tests to find the widget by; UTF-8.
    void setObjectName(const std::string& name);
    std::string objectName() const;

    /// Opens a message box over the widget's window and returns at once. While no page has the
    /// window, because it is still to open, waits for one or went with its page, the box waits, and
    /// comes up with the window. `level`: "information", "warning", "error" or "question"; a modal
    /// box keeps the user from everything else.
    void showMessage(const std::u16string& level, const std::u16string& title,
                     const std::u16string& body, bool modal = true);

    DVWidget2Emitters* emitters() const {
        return static_cast<DVWidget2Emitters*>(DVObject2::emitters());
    }

protected:
    using DVObject2::DVObject2;

    /// Takes hide() back; nothing for a widget that is not hidden.
    void endHiding();
    /// Judges an event before the program's handlers hear it: `isPossible`, and the widget is in
    /// reach. What is refused is put back, on the display as well. Answers the verdict.
    bool admit(const void* event, bool isPossible = true);
    /// The widget is in front of others now.
    virtual void cameToFront() {}
    /// To be called after the backend has described the widget, and what is below it, to a display.
    void described();
    /// Has tellLeftOut() called after each description from now on.
    void leftOutOfDescriptions();
    /// Whether the widget keeps a user from itself and everything below it; `child` is the widget
    /// one step below on the way, null where the way begins.
    virtual bool keepsAway(const DVWidget2* child) const;
    /// To be called before keepsAway() may answer true for the first time.
    void mayKeepAway();

private:
    friend class KeptSettings;

    /// Tells the display what a description of the widget leaves out, beside what is set here.
    virtual void tellLeftOut() const {}
    /// Has the backend show the widget, which is visible by now.
    virtual void showImplementation();
    /// The widget has become visible.
    virtual void visibilityGiven() {}
    virtual bool isWindow() const { return false; }
    /// Whether a description holds everything that was set.
    virtual bool isDescribedWhole() const { return true; }
    /// Of a window: whether a display has it.
    virtual bool isOnDisplay() const { return false; }
    bool isKnownToDisplay() const;
    template <class Setting>
    void keep(Setting setting, diagram::RectTemplate<int> value = {});

    Identifier m_describedUpTo = 0;  // the last object that there was when it was described
    bool m_isKept = false;
    bool m_mayKeepAway = false;
};

}  // namespace DOVA
