#pragma once

#include "toolkit/DVAbstractWindow2Emitters.h"
#include "toolkit/DVContainer2.h"
#include "toolkit/DVWidgetEvent2.h"
#include "wiro/CallableConnection.h"

namespace DOVA {

/// A top-level window. What the user does to it (moves, resizes, maximises) is read back with the
/// getters.
class DOVA_PLATFORM_EXPORT DVAbstractWindow2 : public DVContainer2 {
public:
    ~DVAbstractWindow2() override;

    /// Shows the window at its own size, in front, and with the focus.
    void showNormal();
    /// Minimises the window. One that was never shown stays unseen.
    void showMinimized();
    /// Shows the window as large as the display, in front, and with the focus.
    void showMaximized();
    bool isMinimized() const;
    bool isMaximized() const;
    void setTitle(const std::u16string& title);
    std::u16string title() const;
    /// The window with its frame; an empty rectangle before the display has reported it.
    void setFrameGeometry(diagram::RectTemplate<int> geometry);
    diagram::RectTemplate<int> frameGeometry() const;
    /// The window without its frame; an empty rectangle before the display has reported it.
    void setGeometry(diagram::RectTemplate<int> geometry);
    diagram::RectTemplate<int> geometry() const;
    /// The distance from the frame's corner to the content's, and the differences of the sizes.
    diagram::RectTemplate<int> frameOffset() const;
    /// An image file, absolute or below the application root; UTF-16.
    void setIconWithPath(const std::u16string& path);
    void move(diagram::PointTemplate<int> position);
    /// Closes the window for good: the backend drops it and everything in it.
    void close();

    /// The user, or the end of the page that shows the window, wants it gone. Without a handler the
    /// window stays. The handler may close or destroy the window.
    template <class Callable>
    WIRO::Subscription onCloseRequest(Callable&& callable) {
        return WIRO::connect(m_destroyRequest, std::forward<Callable>(callable));
    }

    WIRO::Emitter<void(const DVWidgetEvent2&)>& destroyRequestEmitter() { return m_destroyRequest; }
    DVAbstractWindow2Emitters* emitters() const {
        return static_cast<DVAbstractWindow2Emitters*>(DVObject2::emitters());
    }

protected:
    using DVContainer2::DVContainer2;

private:
    /// An implementation takes its window along itself.
    void leaveDisplay() override {}

    WIRO::Emitter<void(const DVWidgetEvent2&)> m_destroyRequest;
};

}  // namespace DOVA
