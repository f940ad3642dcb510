#pragma once

#include <string>

#include "toolkit/DVAbstractWindow2.h"
#include "toolkit/DVFlags.h"
#include "windows/WebContainer2.h"

namespace DOVA {

/// The web side of DVAbstractWindow2: a top-level window on the page.
///
/// The first show gives the window a channel of its own and publishes its whole description; from
/// then on each write goes to the page at once. Without a page at that moment nothing is
/// published until doShowAgain(). A page whose windows are being closed counts as none; while
/// another page takes its place, the window is announced to that one. The page owns "geometry",
/// "frameGeometry", "maximized", "minimized" and "title": what it reports under these names
/// replaces what is stored, and the getters give it. The destructor tells the page to close the
/// window.
class DOVA_WEB_EXPORT WebAbstractWindow2 : public WebContainer2 {
public:
    bool isWindow() const override;
    /// Emits the front window's destroy request if the front window is alive and somebody listens;
    /// else the window stays.
    void onDestroyRequested() override;
    std::string getTypeName() const override;
    /// Shows the window the first time; later calls do nothing.
    void doShow() override;

    /// Writes the triggers "showNormal" (or "showMaximized"), "activateWindow" and "raise", then
    /// shows the window if it was not shown yet.
    virtual void doShowNormal();
    /// Only the trigger: a window that is only ever minimised is never handed to the page.
    virtual void doShowMinimized();
    virtual void doShowMaximized();
    /// What the page reported; false before.
    virtual bool doIsMinimized() const;
    virtual bool doIsMaximized() const;
    virtual void doSetTitle(const std::u16string& title);
    virtual std::u16string doGetTitle() const;
    /// Written as the text "[x,y,width,height]"; the page reports an object. The bool is not
    /// used.
    virtual void doSetFrameGeometry(diagram::RectTemplate<int> geometry, bool);
    /// What the page reported, truncated to whole pixels; zeros before.
    virtual diagram::RectTemplate<int> doGetFrameGeometry() const;
    virtual void doSetGeometry(diagram::RectTemplate<int> geometry);
    virtual diagram::RectTemplate<int> doGetGeometry() const;
    /// Geometry less frame geometry, member by member, truncated after the subtraction.
    virtual diagram::RectTemplate<int> doGetFrameOffset() const;
    /// A path that does not hold the application root gets it put in front; "\" becomes "/".
    /// Without an application context or root nothing happens.
    virtual void doSetIconWithPath(const std::u16string& path);
    virtual void doSetIcon(Icon icon);                          // no effect
    virtual void doSetWindowState(DVFlags<WindowState> state);  // no effect
    virtual DVFlags<WindowState> doGetWindowState() const;      // always empty
    /// Written as "[x, y]".
    virtual void doMove(diagram::PointTemplate<int> position);
    virtual void init();  // no effect

    /// Publishes the window as at the first show. Run again, it describes the window anew and gives
    /// up the channel of a former page.
    void showFirstTime();
    /// Announces the window to the page that is there, as if it were shown for the first time:
    /// for one that was shown while there was no page, or whose closing the program refused. Does
    /// nothing for a window that was never shown. Bound to the toolkit's `showAgain` emitter. May
    /// be called while a message for the window is handled; the rest of the message is handled,
    /// too.
    void doShowAgain();
    /// Whether the window was announced to the page that is there now, and that page has not
    /// asked to close it since; false without a page.
    bool doIsAnnounced() const;
    /// Whether the window was announced to the page that is there now, even if that page asked
    /// to close it since; false without a page.
    bool doIsReached() const;
    /// Tells the page to close the window.
    void sendWindowDestroyMessage();

protected:
    WebAbstractWindow2(DVAbstractWindow2* front, DVAbstractWindow2Emitters* emitters);
    ~WebAbstractWindow2() override;

private:
    void bindShowing(DVAbstractWindow2Emitters* emitters);
    void bindGeometry(DVAbstractWindow2Emitters* emitters);
    void showInFront(const std::u16string& trigger);
    void leaveClient();
    QJsonObject rectangleProperty(const std::u16string& name) const;

    bool m_shown = false;
    std::u16string m_iconPath;
};

}  // namespace DOVA
