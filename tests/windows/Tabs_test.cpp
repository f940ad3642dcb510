#include <sys/resource.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>
#include <new>
#include <string>
#include <vector>

#include "support/GivenObject.h"
#include "support/WebFixture.h"
#include "toolkit/DVFactory2.h"
#include "toolkit/DVGroupBox2.h"
#include "toolkit/DVTab2.h"
#include "toolkit/DVTabContainer2.h"
#include "windows/WebGroupBox2.h"
#include "windows/WebTab2.h"
#include "windows/WebTabContainer2.h"

namespace DOVA::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A page that may begin to die before its destructor runs.
struct Leaving : DVTab2 {
    using DVTab2::DVTab2;
    using DVTab2::leaveTheLiving;
};

class TabsTest : public WebFixture {
protected:
    TabsTest() { show(window); }

    WebTabContainer2& web() { return *webObject<WebTabContainer2>(tabs); }
    static WebTab2& web(const DVTab2& page) { return *webObject<WebTab2>(page); }
    static void loseImplementation(const DVObject& front) {
        DVFactory2::getFactory(StringID::setStringID("web"))->destroy.emit(front.identifier());
    }

    DVDialog2 window;
    DVTabContainer2 tabs{&window};
};

TEST_F(TabsTest, addingAnswersOneAndInsertingAnIndex) {
    EXPECT_EQ(web().doAddTab(nullptr), -1);
    EXPECT_EQ(web().doInsertTab(0, nullptr), -1);
    Leaving dying;
    dying.leaveTheLiving();
    EXPECT_EQ(web().doAddTab(&dying), -1);
    EXPECT_EQ(web().doInsertTab(0, &dying), -1);
    EXPECT_EQ(web().doGetTabCount(), 0);
    EXPECT_EQ(web().doGetCurrentTab(), -1);
    DVTab2 pages[7];
    EXPECT_EQ(web().doAddTab(&pages[0]), 1);
    EXPECT_EQ(web().doAddTab(&pages[1]), 1);
    // Appended: the new count, which is one past the page's index.
    const std::pair<int, int> rows[] = {{7, 3}, {0, 0}, {3, 3}, {-1, 6}, {6, 7}};
    int next = 2;
    for (const auto& [index, answer] : rows) {
        EXPECT_EQ(web().doInsertTab(index, &pages[next++]), answer) << index;
    }
    std::vector<std::ptrdiff_t> order;
    order.reserve(std::size(pages));
    for (int index = 0; index < web().doGetTabCount(); ++index) {
        order.push_back(web().doGetTab(index) - pages);
    }
    EXPECT_THAT(order, ElementsAre(3, 0, 1, 4, 2, 5, 6));
}

TEST_F(TabsTest, pagesAreFoundByIndexWhileTheyLive) {
    auto first = std::make_unique<DVTab2>(&tabs);
    Leaving second(&tabs);
    DVTab2 third(&tabs);
    EXPECT_EQ(web().doCurrentTab(), first.get());
    first.reset();
    second.leaveTheLiving();
    const std::pair<int, DVTab2*> rows[] = {
        {-1, nullptr}, {0, nullptr}, {1, nullptr}, {2, &third}, {3, nullptr}};
    for (const auto& [index, page] : rows) {
        EXPECT_EQ(tabs.tab(index), page) << index;
    }
    EXPECT_EQ(tabs.currentTab(), nullptr);
    EXPECT_EQ(tabs.tabCount(), 3);
    tabs.setCurrentIndex(2);
    for (DVTab2* page : {&third, static_cast<DVTab2*>(nullptr)}) {
        EXPECT_EQ(web().doGetTabIndex(page), 2);  // whatever page is asked about
    }
}

TEST_F(TabsTest, aPageThatLeavesItsContainerHasItsOwnFlag) {
    DVTab2 page(&tabs);
    page.setTabVisible(true);
    page.setParent(nullptr);
    EXPECT_TRUE(web(page).doIsTabVisible());
    web(page).doSetTabVisible(false);
    EXPECT_TRUE(web(page).doIsTabVisible());
}

// What each is called on the wire stands in the rows that both sides replay.
TEST_F(TabsTest, namesOfPositionsAreReadBack) {
    for (const int position : {1, 2, 4, 8}) {
        const auto side = static_cast<Position>(position);
        const std::string name = WebTabContainer2::getWebTabPosition(side);
        EXPECT_EQ(WebTabContainer2::getDVTabPosition(name), side);
    }
    EXPECT_EQ(WebTabContainer2::getDVTabPosition("south"), Position::North);
    EXPECT_EQ(tabs.tabPosition(), Position::North);
    tabs.setTabPosition(static_cast<Position>(16));
    EXPECT_EQ(tabs.tabPosition(), static_cast<Position>(16));
}

// What they may destroy stands in the rows that both sides replay.
TEST_F(TabsTest, handlersFindTheNewPage) {
    DVTab2 first(&tabs), second(&tabs);
    DVTab2* heard = nullptr;
    tabs.onCurrentChanged([&](const DVTabContainerEvent2& event) {
        EXPECT_EQ(event.container(), &tabs);
        heard = event.container()->currentTab();
    });
    say(window, tabs, R"("event":"tabchanged","newIndex":1)");
    EXPECT_EQ(heard, &second);
}

/// Whoever asks whether an object is alive, on another thread, waits until its handler is done.
TEST_F(TabsTest, itsEventsAreEmittedUnderTheObjectLock) {
    std::vector<bool> locked;
    const auto ask = [&] { locked.push_back(isObjectLockHeld()); };
    WIRO::connect(tabs.tabChangedEmitter(), ask);
    WIRO::connect(tabs.closeRequestEmitter(), ask);
    say(window, tabs, R"("event":"tabchanged","newIndex":1)");
    say(window, tabs, R"("event":"close","newIndex":1)");
    EXPECT_THAT(locked, ElementsAre(true, true));
}

TEST_F(TabsTest, theFrontContainerTakesAPageOnceAndTheLastOneOut) {
    auto& made = tabs.make<DVTab2>(u"made");
    DVTab2 last(&tabs, u"last");
    tabs.addTab(&made);
    tabs.insertTab(0, &last);
    tabs.addTab(nullptr);
    EXPECT_EQ(tabs.tabCount(), 2);
    EXPECT_EQ(last.name(), u"last");
    for (const int index : {0, -1, 2, 2147483647}) {
        tabs.removeTab(index);  // the web's own would not come back from the first of these
    }
    EXPECT_EQ(tabs.tabCount(), 2);
    tabs.removeTab(1);
    tabs.removeTab(1);
    tabs.removeTab(0);
    EXPECT_EQ(tabs.tabCount(), 1);
    EXPECT_THAT(tabs.children(), ElementsAre(&made));
    EXPECT_EQ(last.parent(), nullptr);
    tabs.insertTab(0, &last);
    EXPECT_THAT((std::vector<DVTab2*>{tabs.tab(0), tabs.tab(1)}), ElementsAre(&last, &made));
    EXPECT_THAT(tabs.children(), ElementsAre(&last, &made)) << "so they are described";
    DVTabContainer2 fresh(&window);
    DVTab2 first;
    fresh.insertTab(1, &first);
    EXPECT_EQ(fresh.currentTab(), &first) << "the first page is in front, inserted or added";
}

/// Nothing else would tell the page that they are gone.
TEST_F(TabsTest, whatIsDestroyedIsHiddenBeforeAndWhatIsInItGoesWithoutAWord) {
    auto* container = new DVTabContainer2(&tabs);
    auto* page = new DVTab2(container);
    auto* group = new DVGroupBox2(page);
    auto* inner = new DVGroupBox2(page);
    const std::pair<DVWidget2*, const char*> rows[] = {
        {group, "GroupBox"}, {page, "WebContainer2"}, {container, "TabContainer"}};
    client.take();
    for (const auto& [widget, type] : rows) {
        const std::string hidden = sent(*widget, type, R"("visible":false)");
        delete widget;
        client.deliver();
        EXPECT_THAT(client.takeTexts(), ElementsAre(hidden));
    }
    delete inner;
    client.deliver();
    EXPECT_THAT(client.takeTexts(), IsEmpty());
}

/// Every order in which a window, its tab container, two pages and a group box may go.
TEST_F(TabsTest, goInAnyOrder) {
    std::array<int, 5> order{0, 1, 2, 3, 4};
    do {
        SCOPED_TRACE(testing::PrintToString(order));
        auto* dialog = new DVDialog2;
        auto* container = new DVTabContainer2(dialog);
        auto* page = new DVTab2(container);
        std::unique_ptr<DVObject2> all[] = {
            std::unique_ptr<DVObject2>(dialog), std::unique_ptr<DVObject2>(container),
            std::unique_ptr<DVObject2>(page), std::make_unique<DVTab2>(container),
            std::make_unique<DVGroupBox2>(page, u"title")};
        dialog->show();
        for (const int loss : order) {
            all[loss].reset();
            if (all[1]) {
                container->setCurrentIndex(0);
                EXPECT_EQ(container->currentTab(), all[0] ? all[2].get() : nullptr);
            }
            if (all[2]) {
                page->setTabVisible(true);
                EXPECT_EQ(page->isTabVisible(), all[0] && all[1]);
            }
        }
    } while (std::next_permutation(order.begin(), order.end()));
}

TEST_F(TabsTest, thePublicFaceKeepsProgramsFromBrokenInvariants) {
    DVTab2 inDialog(&window);
    DVTab2 closed;
    GivenObject bare(4000000000);
    DVTab2 inBare(&bare);
    loseImplementation(closed);
    tabs.addTab(&closed);
    tabs.insertTab(0, &closed);
    EXPECT_EQ(tabs.tabCount(), 0);
    for (DVTab2* page : {&inDialog, &closed, &inBare}) {
        page->setTabVisible(true);
        page->setTabEnabled(false);
        EXPECT_FALSE(page->isTabVisible());
    }
    EXPECT_TRUE(inDialog.isTabEnabled());
}

/// What stops the process, and the object that is named.
TEST_F(TabsTest, brokenInvariantsStopTheProcess) {
    testing::FLAGS_gtest_death_test_style = "fast";
    DVTab2 inDialog(&window);
    GivenObject bare(4000000000);
    DVTab2 inBare(&bare);
    DVTab2 closed;
    loseImplementation(closed);
    const auto names = [](const DVTab2& page) {
        return "^dova2_web: object " + std::to_string(page.identifier()) + ": .*\n$";
    };
    EXPECT_DEATH(web().doAddTab(&closed), names(closed));
    EXPECT_DEATH(web().doInsertTab(0, &closed), names(closed));
    for (const DVTab2* page : {&inDialog, &inBare}) {
        EXPECT_DEATH(web(*page).doSetTabVisible(true), names(*page));
        EXPECT_DEATH(web(*page).doIsTabVisible(), names(*page));
        web(*page).doSetTabEnabled(false);
        EXPECT_TRUE(web(*page).doIsTabEnabled());
    }
}

/// Callers are told that this does not come back; what ends it here is the end of the memory.
TEST_F(TabsTest, takingOutAPageBeforeTheLastGrowsTheList) {
#if defined(DOVA_ADDRESS_SANITIZER)
    GTEST_SKIP() << "the address sanitizer needs more address space than this test allows";
#endif
    testing::FLAGS_gtest_death_test_style = "fast";
    DVTab2 first(&tabs);
    DVTab2 second(&tabs);
    const auto child = [&] {
        const rlimit limit{512u << 20, 512u << 20};
        setrlimit(RLIMIT_AS, &limit);
        try {
            web().doRemoveTab(0);
        } catch (const std::bad_alloc&) {
            std::_Exit(web().doGetTabCount() == 2 ? 0 : 1);
        }
        std::_Exit(2);
    };
    EXPECT_EXIT(child(), testing::ExitedWithCode(0), "");
}

TEST_F(TabsTest, withoutAServiceNothingHappens) {
    testing::FLAGS_gtest_death_test_style = "fast";
    DVTab2 page(&tabs);
    DVTab2 late;
    const auto child = [&, tabsObject = &web(), pageObject = &web(page)] {
        WebObjectService2::install(nullptr);
        EXPECT_EQ(tabsObject->doAddTab(&late), -1);
        EXPECT_EQ(tabsObject->doInsertTab(0, &late), -1);
        EXPECT_EQ(tabsObject->doGetTab(0), nullptr);
        tabsObject->doSetCurrentTab(3);
        EXPECT_EQ(tabsObject->doGetCurrentTab(), 3);
        pageObject->doSetTabVisible(true);
        pageObject->doSetTabEnabled(false);
        EXPECT_FALSE(pageObject->doIsTabVisible());
        EXPECT_TRUE(pageObject->doIsTabEnabled());
        std::_Exit(HasFailure() ? 1 : 0);
    };
    EXPECT_EXIT(child(), testing::ExitedWithCode(0), "");
}

TEST_F(TabsTest, aGroupBoxTakesAndAnswersItsTitleInBothEncodings) {
    DVGroupBox2 group(&window);
    auto* object = webObject<WebGroupBox2>(group);
    object->doSetTitle(u8"größe \U0001F600");
    EXPECT_EQ(group.title(), u"größe \U0001F600");
    group.setTitle(u"é");
    EXPECT_EQ(object->doGetTitle(), u8"é");
}

TEST_F(TabsTest, everyRequestIsBoundOnce) {
    DVTab2 page;
    DVGroupBox2 group;
    const DVTabContainer2Emitters& t = *tabs.emitters();
    const DVTab2Emitters& p = *page.emitters();
    const DVGroupBox2Emitters& g = *group.emitters();
    expectBoundOnce(t.addTab, t.insertTab, t.removeTab, t.getTab, t.currentTab, t.setCornerWidget,
                    t.getTabIndex, t.getTabCount, t.getTabsClosable, t.getDocumentMode,
                    t.setCurrentTab, t.setTabToolTip, t.setTabMovable, t.getTabMovable, t.moveTab,
                    t.setTabPosition, t.setTabsClosable, t.setDocumentMode, t.getVisible,
                    t.getCurrentTab, t.getTabPosition, t.getTabAreaGlobalPosition,
                    t.setCurrentTabWithSideEffects);
    expectBoundOnce(p.setName, p.getName, p.setTabVisible, p.isTabVisible, p.setTabEnabled,
                    p.isTabEnabled);
    expectBoundOnce(g.setTitle, g.setTitleU, g.setFlat, g.getTitle, g.getTitleU, g.isFlat);
}

}  // namespace
}  // namespace DOVA::test
