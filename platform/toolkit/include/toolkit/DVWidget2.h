#pragma once

#include <string>

#include "toolkit/DVObject2.h"
#include "toolkit/DVWidget2Emitters.h"

namespace DOVA {

/// Anything visible. A setter reaches the backend at once; a getter gives what the backend knows.
/// Texts are plain, sizes and positions are in toolkit pixels. What is set before the widget is
/// shown holds when it is shown, and each time that it, or what it is in, is shown again. Main
/// thread.
///
/// A handler that is connected with an on...() operation hears only what a user can have done. The
/// event of a widget that is out of reach does not come to it; the display is told again how the
/// widget is. The emitters beside them carry every event as the backend reports it.
class DOVA_TOOLKIT_EXPORT DVWidget2 : public DVObject2 {
public:
    ~DVWidget2() override;

    /// Shows the widget with everything below it, as it is now, also after hide(). What was hidden
    /// itself below it stays hidden. A window opens.
    void show();
    /// Hides the widget with everything below it, as setVisible(false).
    void hide();
    /// Brings the widget to the front.
    void raise();
    /// Asks the display to draw the widget anew.
    void refresh() { emitters()->refresh(); }
    /// Moves the keyboard focus to the widget, or to the first control in it that can take it. When
    /// the display does not know the widget yet, it does so later; of several such widgets the last
    /// one gets the focus.
    void setFocus();
    /// Hides the widget, or shows it again; sent each time. A window opens with true.
    void setVisible(bool visible);
    /// What the program asked for, true at first. The widgets above may be hidden all the same, and
    /// no page may be there to show it.
    bool isVisible() const { return emitters()->isVisible(); }
    /// Whether the user may use the widget, true at first; everything below it follows.
    void setEnabled(bool enabled);
    bool isEnabled() const { return emitters()->isEnabled(); }
    /// Whether a user can use the widget: it and everything above it is visible and enabled, the
    /// tab page that it is on is the current one, and no modal dialog keeps the user from its
    /// window. Does not ask whether a page is there. True for an object without implementation.
    bool isInReach() const;
    /// A text that is shown when the user points at the widget; empty for none.
    void setToolTip(const std::u16string& text) { emitters()->setToolTipU(text); }
    std::u16string toolTip() const { return emitters()->getToolTipU(); }
    void setColor(ColorRole role, Color color) { emitters()->setColor(role, color); }
    /// Not what was set: the web backend answers opaque white for the background, else the zero
    /// colour.
    Color color(ColorRole role) const { return emitters()->getColor(role); }
    /// The place in the parent, and the size.
    void setPosition(diagram::RectTemplate<int> position);
    diagram::RectTemplate<int> position() const { return emitters()->getPosition(); }
    /// The place in the parent.
    void moveTo(diagram::PointTemplate<int> point);
    /// A negative width or height leaves that dimension as it is; likewise setMaximumSize().
    void setMinimumSize(diagram::TSize<int> size);
    /// The least size in display pixels: times dpiScale(), truncated; likewise maximumSize().
    diagram::TSize<int> minimumSize() const { return emitters()->getMinimumSize(); }
    void setMaximumSize(diagram::TSize<int> size);
    diagram::TSize<int> maximumSize() const { return emitters()->getMaximumSize(); }
    void setPreferredSize(diagram::TSize<int> size);
    diagram::TSize<int> preferredSize() const { return emitters()->getPreferredSize(); }
    void resize(diagram::TSize<int> size);
    /// A name for programs and tests to find the widget by; UTF-8.
    void setObjectName(const std::string& name);
    std::string objectName() const { return emitters()->getObjectName(); }

    /// Opens a message box over the widget's window and returns at once. While no page shows the
    /// window, the box waits; it comes up with the window. `level`: "information", "warning",
    /// "error" or "question". A modal box keeps the user from everything else.
    void showMessage(const std::u16string& level, const std::u16string& title,
                     const std::u16string& body, bool modal = true);

    DVWidget2Emitters* emitters() const {
        return static_cast<DVWidget2Emitters*>(DVObject2::emitters());
    }

protected:
    using DVObject2::DVObject2;

    /// Takes hide() back; nothing for a widget that is not hidden.
    void endHiding();
    /// Judges an event before the program's handlers hear it: admits it when `isPossible` and the
    /// widget is in reach, else puts back what it changed, on the display as well. Gives whether it
    /// is admitted.
    bool admit(const void* event, bool isPossible = true);
    /// The widget is in front of others now.
    virtual void cameToFront() {}
    /// Call it after the backend has described the widget, with what is below it, to a display.
    void described();
    /// From now on tellLeftOut() is called after each description.
    void leftOutOfDescriptions();
    /// Whether the widget keeps a user from itself and from what is below it. `child` is the widget
    /// right below it, on the way up from the one that is asked about; null for that one itself.
    virtual bool keepsAway(const DVWidget2* child) const;
    /// Call it before keepsAway() may give true for the first time.
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
