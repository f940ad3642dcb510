// A page that lies, or that does not know yet what the program has done, tells of what nobody can
// have done to a widget. The program does not hear of it, and program and page agree afterwards.

#include <string>
#include <vector>

#include "support/WebFixture.h"
#include "toolkit/DVButton2.h"
#include "toolkit/DVCheckBox2.h"
#include "toolkit/DVComboBox2.h"
#include "toolkit/DVEdit2.h"
#include "toolkit/DVPanel2.h"
#include "toolkit/DVTab2.h"
#include "toolkit/DVTabContainer2.h"
#include "widgets/WebAbstractButton2.h"
#include "widgets/WebComboBox2.h"

namespace DOVA::test {
namespace {

using testing::ElementsAreArray;
using testing::IsEmpty;

struct Scene {
    Scene() {
        webObject<WebAbstractButton2>(toggle)->doSetCheckable(true);
        combo.setEditable(true);
        combo.setSelection(0);
        tabs.setTabsClosable(true);
        listen();
    }

    void listen() {
        const auto hear = [this] { ++heard; };
        for (DVAbstractButton2* each :
             {static_cast<DVAbstractButton2*>(&button), static_cast<DVAbstractButton2*>(&toggle),
              static_cast<DVAbstractButton2*>(&box), static_cast<DVAbstractButton2*>(&inner)}) {
            each->onClick(hear);
            each->onToggle(hear);
        }
        edit.onEdit(hear);
        edit.onEditFinish(hear);
        combo.onSelect(hear);
        combo.onEdit(hear);
        combo.onEditFinish(hear);
        for (DVTabContainer2* each : {&tabs, &plain}) {
            each->onCurrentChanged(hear);
            each->onCloseRequest(hear);
        }
        window.onKey(hear);
    }

    /// What the program reads of the widgets.
    std::string state() const {
        const auto text = [](const std::u16string& wide) {
            return std::string(wide.begin(), wide.end());
        };
        return std::to_string(button.isChecked()) + std::to_string(toggle.isChecked()) +
               std::to_string(box.isChecked()) + text(edit.text()) +
               std::to_string(combo.selection()) +
               text(webObject<WebComboBox2>(combo)->doGetTextU()) +
               std::to_string(tabs.currentIndex());
    }

    DVDialog2 window;
    DVPanel2 panel{&window};
    DVButton2 button{&panel};
    DVButton2 toggle{&panel};
    DVCheckBox2 box{&panel};
    DVEdit2 edit{&panel, u"before"};
    DVComboBox2 combo{&panel, {u"a", u"b"}};
    DVTabContainer2 tabs{&panel};
    DVTab2 first{&tabs};
    DVTab2 second{&tabs};
    DVTab2 third{&tabs};
    DVButton2 inner{&first};
    DVTabContainer2 plain{&panel};
    DVTab2 only{&plain};
    DVDialog2 question;
    int heard = 0;
};

/// Something that the page says of a widget, and what it is told again when that is refused.
struct Event {
    const char* name;
    DVWidget2& (*widget)(Scene&);
    const char* members;
    const char* type;
    std::vector<const char*> told;
};

const Event s_events[] = {
    {"click",
     [](Scene& s) -> DVWidget2& { return s.button; },
     R"("event":"onClick")",
     "Button",
     {}},
    {"toggle",
     [](Scene& s) -> DVWidget2& { return s.toggle; },
     R"("event":"onToggle","value":true)",
     "Button",
     {R"("checked":false)"}},
    {"check",
     [](Scene& s) -> DVWidget2& { return s.box; },
     R"("event":"onToggle","value":true)",
     "CheckBox",
     {R"("checked":false)"}},
    {"type",
     [](Scene& s) -> DVWidget2& { return s.edit; },
     R"("event":"onEdit","value":"typed")",
     "Edit",
     {R"("text":"before")"}},
    {"finish",
     [](Scene& s) -> DVWidget2& { return s.edit; },
     R"("event":"onEditFinish","value":"typed")",
     "Edit",
     {R"("text":"before")"}},
    {"choose",
     [](Scene& s) -> DVWidget2& { return s.combo; },
     R"("event":"onSelectionChange","index":1,"value":"b")",
     "ComboBox",
     {R"("currentindex":0)", R"("text":"a")"}},
    {"type in a list",
     [](Scene& s) -> DVWidget2& { return s.combo; },
     R"("event":"onEdit","value":"typed")",
     "ComboBox",
     {R"("currentindex":0)", R"("text":"a")"}},
    {"turn",
     [](Scene& s) -> DVWidget2& { return s.tabs; },
     R"("event":"tabchanged","newIndex":2)",
     "TabContainer",
     {R"("currentindex":0)"}},
    {"close a page",
     [](Scene& s) -> DVWidget2& { return s.tabs; },
     R"("event":"close","newIndex":1)",
     "TabContainer",
     {}},
    {"click on a page",
     [](Scene& s) -> DVWidget2& { return s.inner; },
     R"("event":"onClick")",
     "Button",
     {}},
    {"zoom",
     [](Scene& s) -> DVWidget2& { return s.window; },
     R"("increaseFontSize":true)",
     "Dialog",
     {}},
};

/// What the program has done before it hears of it.
struct Bar {
    const char* name;
    void (*put)(Scene&, DVWidget2& widget);
};

const Bar s_everywhere[] = {
    {"disabled", [](Scene&, DVWidget2& widget) { widget.setEnabled(false); }},
    {"hidden", [](Scene&, DVWidget2& widget) { widget.hide(); }},
    {"below a disabled window", [](Scene& s, DVWidget2&) { s.window.setEnabled(false); }},
    {"below a hidden window", [](Scene& s, DVWidget2&) { s.window.setVisible(false); }},
    {"behind a modal dialog",
     [](Scene& s, DVWidget2&) {
         s.question.setModal(true);
         s.question.show();
     }},
    {"modal, behind a modal dialog",
     [](Scene& s, DVWidget2&) {
         s.window.setModal(true);
         s.question.setModal(true);
         s.question.show();
     }},
};

class ReachTest : public WebFixture {
protected:
    /// Plays one event, unbarred and behind the bar.
    void refuses(const Event& event, const Bar& bar, const std::string& stateAfter = {}) {
        SCOPED_TRACE(std::string(event.name) + ", " + bar.name);
        Scene free;
        show(free.window);
        say(free.window, event.widget(free), event.members);
        EXPECT_EQ(free.heard, 1) << "nothing to refuse";
        Scene scene;
        show(scene.window);
        DVWidget2& widget = event.widget(scene);
        bar.put(scene, widget);
        const std::string before = scene.state();
        client.take();
        say(scene.window, widget, event.members);
        EXPECT_EQ(scene.heard, 0);
        EXPECT_EQ(scene.state(), stateAfter.empty() ? before : stateAfter);
        std::vector<std::string> told;
        for (const char* property : event.told) {
            told.push_back(sent(widget, event.type, property));
        }
        EXPECT_THAT(client.takeTexts(), ElementsAreArray(told));
    }
};

TEST_F(ReachTest, whatNobodyCanUseTellsTheProgramNothing) {
    for (const Event& event : s_events) {
        for (const Bar& bar : s_everywhere) {
            refuses(event, bar);
        }
    }
}

TEST_F(ReachTest, norDoesWhatIsNotThere) {
    const auto inTabs = [](const char* name, const char* members, std::vector<const char*> told) {
        return Event{name, [](Scene& s) -> DVWidget2& { return s.tabs; }, members, "TabContainer",
                     std::move(told)};
    };
    const Event turn =
        inTabs("turn", R"("event":"tabchanged","newIndex":2)", {R"("currentindex":0)"});
    const Event turnToNone = inTabs("turn", R"("event":"tabchanged","newIndex":2)", {});
    const Event closing = inTabs("close", R"("event":"close","newIndex":2)", {});
    const Event& click = s_events[9];
    const Event choice{"choose",
                       [](Scene& s) -> DVWidget2& { return s.combo; },
                       R"("event":"onSelectionChange","index":1,"value":"b")",
                       "ComboBox",
                       {}};
    const struct {
        Event event;
        Bar bar;
        const char* after;
    } rows[] = {
        {turn, {"disabled page", [](Scene& s, DVWidget2&) { s.third.setTabEnabled(false); }}, ""},
        {turn, {"hidden page", [](Scene& s, DVWidget2&) { s.third.setVisible(false); }}, ""},
        {turnToNone,
         {"no such page", [](Scene& s, DVWidget2&) { s.tabs.removeTab(2); }},
         "000before0a-1"},
        {closing,
         {"disabled page", [](Scene& s, DVWidget2&) { s.third.setTabEnabled(false); }},
         ""},
        {closing, {"no such page", [](Scene& s, DVWidget2&) { s.tabs.removeTab(2); }}, ""},
        {choice,
         {"no such item", [](Scene& s, DVWidget2&) { s.combo.removeItem(1); }},
         "000before-1b0"},
        {s_events[1],
         {"not checkable",
          [](Scene& s, DVWidget2&) {
              webObject<WebAbstractButton2>(s.toggle)->doSetCheckable(false);
          }},
         ""},
        {click, {"page behind", [](Scene& s, DVWidget2&) { s.tabs.setCurrentIndex(1); }}, ""},
        {click, {"page hidden", [](Scene& s, DVWidget2&) { s.first.setVisible(false); }}, ""},
        {click, {"page disabled", [](Scene& s, DVWidget2&) { s.first.setTabEnabled(false); }}, ""},
        {click, {"tabs disabled", [](Scene& s, DVWidget2&) { s.tabs.setEnabled(false); }}, ""},
    };
    for (const auto& row : rows) {
        refuses(row.event, row.bar, row.after);
    }
    Scene scene;
    show(scene.window);
    say(scene.window, scene.plain, R"("event":"close","newIndex":0)");
    EXPECT_EQ(scene.heard, 0) << "its pages have no close buttons";
}

/// Where the page in front has gone, the next one that can be seen is, else the last.
TEST_F(ReachTest, thePageThatTakesAnothersPlaceCanBeUsed) {
    Scene scene;
    show(scene.window);
    const auto clicks = [&] {
        scene.heard = 0;
        say(scene.window, scene.inner, R"("event":"onClick")");
        return scene.heard;
    };
    scene.tabs.setCurrentIndex(2);
    EXPECT_EQ(clicks(), 0);
    scene.third.setVisible(false);
    EXPECT_EQ(clicks(), 0);
    scene.second.setVisible(false);
    EXPECT_EQ(clicks(), 1);
}

/// The modal dialog that was asked to go may have gone with its page.
TEST_F(ReachTest, modalDialogsShutOffWhatIsBehindThemAndNoMore) {
    Scene scene;
    show(scene.window);
    DVButton2 yes(&scene.question);
    int answers = 0;
    yes.onClick([&] { ++answers; });
    scene.question.setModal(true);
    const auto heard = [&] {
        scene.heard = answers = 0;
        say(scene.window, scene.button, R"("event":"onClick")");
        say(scene.question, yes, R"("event":"onClick")");
        return std::to_string(scene.heard) + std::to_string(answers);
    };
    EXPECT_EQ(heard(), "10") << "never shown";
    scene.question.show();
    EXPECT_EQ(heard(), "01");
    scene.window.setModal(true);
    scene.window.raise();
    EXPECT_EQ(heard(), "10");
    scene.question.raise();
    EXPECT_EQ(heard(), "01");
    say(scene.question, scene.question, R"("minimized":true)");
    EXPECT_EQ(heard(), "11") << "of two modal windows one is on top";
}

TEST_F(ReachTest, whatOneHandlerDoesTakesTheEventFromNoOther) {
    Scene scene;
    show(scene.window);
    std::string log;
    scene.button.onClick([&] {
        log += "first;";
        scene.button.setEnabled(false);
        say(scene.window, scene.button, R"("event":"onClick")");
    });
    scene.button.onClick([&] { log += "second;"; });
    say(scene.window, scene.button, R"("event":"onClick")");
    EXPECT_EQ(log, "first;second;");
}

}  // namespace
}  // namespace DOVA::test
