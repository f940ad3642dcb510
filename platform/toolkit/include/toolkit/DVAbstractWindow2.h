#pragma once

#include <vector>

#include "toolkit/DVAbstractWindow2Emitters.h"
#include "toolkit/DVContainer2.h"
#include "toolkit/DVWidgetEvent2.h"
#include "wiro/CallableConnection.h"

namespace DOVA {

/// A top-level window. What the user does to it (moves, resizes, maximises) is read back with the
/// getters.
///
/// A window opens with show(), showNormal(), showMaximized() or setVisible(true). Without a page at
/// that moment it appears on the next one, unless it is hidden, closed or destroyed by then. The
/// same calls bring a window of an earlier page to the present one.
class DOVA_TOOLKIT_EXPORT DVAbstractWindow2 : public DVContainer2 {
public:
    ~DVAbstractWindow2() override;

    /// Shows the window at its own size, in front, and with the focus, also after hide().
    void showNormal();
    /// Minimises the window. One that was never shown, or is hidden, stays unseen.
    void showMinimized() { emitters()->showMinimized(); }
    /// Shows the window as large as the display, in front, and with the focus, also after hide().
    void showMaximized();
    bool isMinimized() const { return emitters()->isMinimized(); }
    bool isMaximized() const { return emitters()->isMaximized(); }
    void setTitle(const std::u16string& title) { emitters()->setTitle(title); }
    std::u16string title() const { return emitters()->getTitle(); }
    /// The window with its frame; an empty rectangle before the display has reported it.
    void setFrameGeometry(diagram::RectTemplate<int> geometry) {
        emitters()->setFrameGeometry(geometry, false);
    }
    diagram::RectTemplate<int> frameGeometry() const { return emitters()->getFrameGeometry(); }
    /// The window without its frame; an empty rectangle before the display has reported it.
    void setGeometry(diagram::RectTemplate<int> geometry) { emitters()->setGeometry(geometry); }
    diagram::RectTemplate<int> geometry() const { return emitters()->getGeometry(); }
    /// The distance from the frame's corner to the content's, and the differences of the sizes.
    diagram::RectTemplate<int> frameOffset() const { return emitters()->getFrameOffset(); }
    /// An image file, absolute or below the application root; UTF-16.
    void setIconWithPath(const std::u16string& path) { emitters()->setIconWithPath(path); }
    void move(diagram::PointTemplate<int> position) { emitters()->move(position); }
    /// Closes the window for good: the backend drops it and everything in it.
    void close();
    /// Answers a close request with no: the window stays where and as it is, with what is typed in
    /// it, and its X works again. A hidden one is shown. If the page is gone, the window comes up
    /// on the one that has taken its place, else on the next one.
    void stayOpen();

    /// The user pressed the window's X, or the page that shows it goes: it was closed, or another
    /// page has taken over. The program decides, in the handler or later: close() or the destructor
    /// ends the window, hide() takes it from the display, stayOpen() keeps it; opening it once more
    /// counts as stayOpen(). The request comes once each time that the window was opened on a page.
    /// Until the program has decided, the X does nothing, and a page that comes does not get the
    /// window. Without any handler the window stays, on the next page as well.
    template <class Callable>
    WIRO::Subscription onCloseRequest(Callable&& callable) {
        return WIRO::connect(m_destroyRequest, std::forward<Callable>(callable));
    }

    /// For a host: call it when the backend knows a page that has come, and after each close
    /// request. Opens on that page, in the order in which the program opened them, the windows that
    /// wait for a page, and those that were asked to close while nobody listens. Before the first
    /// call no window waits for a page.
    static void openDue();

    WIRO::Emitter<void(const DVWidgetEvent2&)>& destroyRequestEmitter() { return m_destroyRequest; }
    DVAbstractWindow2Emitters* emitters() const {
        return static_cast<DVAbstractWindow2Emitters*>(DVObject2::emitters());
    }

protected:
    using DVContainer2::DVContainer2;

private:
    friend class DVWidget2;

    bool isWindow() const override { return true; }
    bool isOnDisplay() const override { return emitters()->isAnnounced(); }
    /// An implementation takes its window along itself.
    void leaveDisplay() override {}
    void showImplementation() override;
    void visibilityGiven() override { showImplementation(); }

    void openBy(WIRO::Emitter<void()>& request);
    void markOpened();
    void takeToPage(bool wasOnDisplay);
    /// Keeps a message box for the page on which the window opens next; false if it is on one.
    bool keepForPage(const TextMessage& message);
    bool isOpened() const;
    bool isDue() const;
    void leaveOpened();

    std::vector<TextMessage> m_kept;
    bool m_awaitsPage = false;  // opened by the program while there was none to open it on

    WIRO::Emitter<void(const DVWidgetEvent2&)> m_destroyRequest;
};

}  // namespace DOVA
