#pragma once

#include <string>
#include <vector>

#include "toolkit/DVTabContainer2.h"
#include "widgets/WebWidget2.h"

namespace DOVA {

/// The tab container of the web: an ordered list of pages. Pages and style flags are stored and
/// reach the client with the next description; the current index, the position and the visibility
/// are sent each time.
///
/// Client events: "tabchanged" with the number "newIndex" becomes a tab-changed event, if that is
/// another than the current index, which follows first, unsent; "close" a close-request event, and
/// the page stays. A "newIndex" that is absent counts as -1, one that is no whole number as 0.
class DOVA_WEB_EXPORT WebTabContainer2 : public WebWidget2 {
public:
    static constexpr int NoTab = -1;

    WebTabContainer2(DVTabContainer2* front, DVTabContainer2Emitters* emitters, DVObject* parent);
    ~WebTabContainer2() override;

    /// Makes the page the last one. If none is current, page 0 becomes so. Under the object lock.
    ///
    /// REQUIRES, as doInsertTab() does: a living page has its web object; else the process stops.
    virtual int doAddTab(DVTab2* tab);  // 1, not the index, or -1 for null and for no valid object
    /// Puts the page before position `index`; an index that no page has appends. The current index
    /// stays. Answers the page's index, or -1 as above.
    virtual int doInsertTab(int index, DVTab2* tab);  // appended: the new count, one past the index
    /// Lowers the count and, if the page was current, sends 0 as the current index. No page leaves
    /// the list or the tree.
    virtual void doRemoveTab(int index);  // never returns below the last index: the list grows on
    /// Null for an index that no page has and for a page that is not alive any more.
    virtual DVTab2* doGetTab(int index) const;
    virtual DVTab2* doCurrentTab() const;
    virtual void doSetCornerWidget(DVWidget2* widget, WindowCorner corner);  // no effect
    virtual int doGetTabIndex(DVTab2* tab) const;  // the current index, whatever the page
    /// How many pages were added, less the calls of doRemoveTab().
    virtual int doGetTabCount() const;
    virtual bool doGetTabsClosable() const;
    virtual bool doGetDocumentMode() const;
    /// The index is not compared with the number of pages.
    virtual void doSetCurrentTab(int index);
    /// Stored only, as the tooltip of the container: tabs have none. UTF-8.
    virtual void doSetTabToolTip(int index, const std::string& text);
    virtual void doSetTabMovable(bool movable);
    virtual bool doGetTabMovable() const;
    virtual void doMoveTab(int from, int to);  // no effect: the client moves tabs by itself
    virtual void doSetTabPosition(Position position);
    virtual void doSetTabsClosable(bool closable);      // true whatever the argument
    virtual void doSetDocumentMode(bool documentMode);  // true whatever the argument
    /// What was last set here, false at first; doIsVisible() is true at first like every widget's.
    virtual bool doGetVisible() const;
    /// -1 before the first page.
    virtual int doGetCurrentTab() const;
    virtual Position doGetTabPosition() const;
    /// Always (0, 0): the client's places are not known here.
    virtual diagram::PointTemplate<int> doGetTabAreaGlobalPosition() const;
    /// Makes the client turn to the page; the current index stays, and no event comes: for the
    /// client this is doSetCurrentTab(), and it reports only what the user does.
    virtual void doSetCurrentTabWithSideEffects(int index);

    void doSetVisible(bool visible) override;
    /// As every widget's.
    void doSetColor(ColorRole role, Color color) override;
    void handleJSONMessage(const QJsonObject& message) override;
    std::string getTypeName() const override;

    /// The name of a position in messages; what is no position counts as north, both ways.
    static std::string getWebTabPosition(Position position);
    static Position getDVTabPosition(const std::string& name);

private:
    void bindPages(DVTabContainer2Emitters* emitters);
    void bindLooks(DVTabContainer2Emitters* emitters);
    bool adopt(DVTab2* tab);
    void setTabCount(int count);

    int m_tabCount = 0;
    int m_currentIndex = NoTab;
    std::vector<Identifier> m_tabIds;
    bool m_movable = false;
    bool m_visible = false;
    Position m_position{1};  // north
};

}  // namespace DOVA
