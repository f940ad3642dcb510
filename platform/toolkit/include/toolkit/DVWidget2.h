#pragma once

#include <string>

#include "toolkit/DVObject2.h"
#include "toolkit/DVWidget2Emitters.h"

namespace DOVA {

/// Anything visible. Every setter reaches the backend at once; a getter answers what the backend
/// knows. Sizes and positions are in toolkit pixels.
class DOVA_PLATFORM_EXPORT DVWidget2 : public DVObject2 {
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
    /// Moves the keyboard focus into the widget.
    void setFocus();
    /// Takes the widget from the display or back to it; sent each time. A window opens with true.
    void setVisible(bool visible);
    /// What the program wants: true from the start and until hide(). Says nothing about the widgets
    /// above, nor whether a page is there to show it.
    bool isVisible() const;
    void setEnabled(bool enabled);
    bool isEnabled() const;
    void setToolTip(const std::u16string& text);
    std::u16string toolTip() const;
    void setColor(ColorRole role, Color color);
    Color color(ColorRole role) const;
    void setPosition(diagram::RectTemplate<int> position);
    diagram::RectTemplate<int> position() const;
    void moveTo(diagram::PointTemplate<int> point);
    /// A negative width or height leaves that dimension as it is; likewise below.
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

    /// Opens a message box over the widget's window and returns at once. `level`: "information",
    /// "warning", "error" or "question"; a modal box keeps the user from the rest of the window.
    void showMessage(const std::u16string& level, const std::u16string& title,
                     const std::u16string& body, bool modal = true);

    DVWidget2Emitters* emitters() const {
        return static_cast<DVWidget2Emitters*>(DVObject2::emitters());
    }

protected:
    using DVObject2::DVObject2;

    /// Takes hide() back; nothing for a widget that is not hidden.
    void endHiding();

private:
    /// Has the backend show the widget, which is visible by now.
    virtual void showImplementation();
    /// The widget has become visible.
    virtual void visibilityGiven() {}
};

}  // namespace DOVA
