#pragma once

#include <vector>

#include "toolkit/Admission.h"
#include "toolkit/DVTabContainer2Emitters.h"
#include "toolkit/DVTabContainerEvent2.h"
#include "toolkit/DVWidget2.h"
#include "wiro/CallableConnection.h"

namespace DOVA {

/// A row of pages; the user sees one at a time.
///
///     DVTabContainer2 tabs(&dialog);
///     DVTab2 general(&tabs, u"General");
///     DVTab2 network(&tabs, u"Network");
///     tabs.onCurrentChanged([&](const DVTabContainerEvent2& event) { load(event.index()); });
///
/// New pages, tooltips and style flags take effect with the next full description of the container,
/// which show() sends. The current page and the position take effect at once, and a page that is
/// destroyed is gone at once.
class DOVA_TOOLKIT_EXPORT DVTabContainer2 : public DVWidget2 {
public:
    explicit DVTabContainer2(DVObject* parent = nullptr);
    ~DVTabContainer2() override;

    /// Makes the page the last one; it stays the caller's. The first page becomes the current one.
    /// Null, a page that is here already and one without implementation change nothing.
    void addTab(DVTab2* tab);
    /// The same before position `index`; an index that no page has appends. The current index
    /// stays, so another page may be in front afterwards.
    void insertTab(int index, DVTab2* tab);
    /// Takes out the last page, whose position is `index`; if it was current, page 0 becomes so.
    /// Any other index changes nothing, also that of a page taken out before, because backends keep
    /// the positions of pages.
    void removeTab(int index);
    /// The page at a position; null if there is none or it was destroyed. A destroyed page keeps
    /// its position; but a display that gets its first description of the container after that
    /// counts only the pages that there are.
    DVTab2* tab(int index) const { return emitters()->getTab(index); }
    DVTab2* currentTab() const { return emitters()->currentTab(); }
    int tabCount() const { return emitters()->getTabCount(); }

    /// Turns to a page. The number is kept as it is, whether there is such a page or not.
    void setCurrentIndex(int index);
    /// Follows the user. -1 before the first page, and after the display reported a position that
    /// never had a page.
    int currentIndex() const;
    void setTabPosition(Position position) { emitters()->setTabPosition(position); }
    Position tabPosition() const { return emitters()->getTabPosition(); }
    /// Tells the display that the user may move the tabs. Displays need not offer it; with the web
    /// backend the tabs stay in their order.
    void setTabMovable(bool movable) { emitters()->setTabMovable(movable); }
    bool isTabMovable() const { return emitters()->getTabMovable(); }
    /// Gives every tab a close button. The web backend does so whatever the argument, so call it
    /// only on such a container; likewise setDocumentMode().
    void setTabsClosable(bool closable) { emitters()->setTabsClosable(closable); }
    bool isTabsClosable() const { return emitters()->getTabsClosable(); }
    /// Draws the pages without a frame.
    void setDocumentMode(bool documentMode) { emitters()->setDocumentMode(documentMode); }
    bool isDocumentMode() const { return emitters()->getDocumentMode(); }

    /// The user turned to another page; currentIndex() answers it already.
    template <class Callable>
    WIRO::Subscription onCurrentChanged(Callable&& callable) {
        return WIRO::connect(m_tabChanged, Admission::handler(std::forward<Callable>(callable)));
    }
    /// The user wants a page closed. Without a handler it stays. The handler may destroy the page.
    template <class Callable>
    WIRO::Subscription onCloseRequest(Callable&& callable) {
        return WIRO::connect(m_closeRequest, Admission::handler(std::forward<Callable>(callable)));
    }

    WIRO::Emitter<void(const DVTabContainerEvent2&)>& tabChangedEmitter() { return m_tabChanged; }
    WIRO::Emitter<void(const DVTabContainerEvent2&)>& closeRequestEmitter() {
        return m_closeRequest;
    }
    DVTabContainer2Emitters* emitters() const {
        return static_cast<DVTabContainer2Emitters*>(DVObject2::emitters());
    }

private:
    bool mayTake(const DVTab2* tab) const;
    bool hasPosition(int index) const;
    const DVTab2* page(int index) const;
    const DVTab2* pageInFront() const;
    void judgeTurn(const DVTabContainerEvent2& event);
    void judgeClose(const DVTabContainerEvent2& event);
    bool keepsAway(const DVWidget2* child) const override;
    void attachAgain(std::size_t from);
    void leaveDisplay() override { hide(); }

    WIRO::Emitter<void(const DVTabContainerEvent2&)> m_tabChanged;
    WIRO::Emitter<void(const DVTabContainerEvent2&)> m_closeRequest;
    std::vector<Identifier> m_pages;  // by position; 0 where one was taken out
    bool m_isAstray = false;  // the backend took over a position from the display that has no page
};

}  // namespace DOVA
