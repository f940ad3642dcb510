// A page that lies, or that does not know yet what the program has done, tells of what nobody can
// have done to a widget. The program does not hear of it, and program and page agree afterwards.

#include <map>
#include <string>
#include <vector>

#include "support/JsonRows.h"
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
        for (auto* each :
             std::initializer_list<DVAbstractButton2*>{&button, &toggle, &box, &inner}) {
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
    /// As the rows call them.
    const std::map<std::string, DVWidget2*> widgets{
        {"button", &button}, {"toggle", &toggle}, {"box", &box},     {"edit", &edit},
        {"combo", &combo},   {"tabs", &tabs},     {"inner", &inner}, {"window", &window}};
};

/// What the program has done before it hears of an event of the widget.
using Bar = void (*)(Scene&, DVWidget2& widget);

/// On whatever widget.
const std::map<std::string, Bar> s_everywhere{
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

/// Of a page or an item.
const std::map<std::string, Bar> s_absence{
    {"disabled page", [](Scene& s, DVWidget2&) { s.third.setTabEnabled(false); }},
    {"hidden page", [](Scene& s, DVWidget2&) { s.third.setVisible(false); }},
    {"no such page", [](Scene& s, DVWidget2&) { s.tabs.removeTab(2); }},
    {"no such item", [](Scene& s, DVWidget2&) { s.combo.removeItem(1); }},
    {"not checkable",
     [](Scene& s, DVWidget2&) { webObject<WebAbstractButton2>(s.toggle)->doSetCheckable(false); }},
    {"page behind", [](Scene& s, DVWidget2&) { s.tabs.setCurrentIndex(1); }},
    {"page hidden", [](Scene& s, DVWidget2&) { s.first.setVisible(false); }},
    {"page disabled", [](Scene& s, DVWidget2&) { s.first.setTabEnabled(false); }},
    {"tabs disabled", [](Scene& s, DVWidget2&) { s.tabs.setEnabled(false); }},
};

/// The members of an object as they stand in its text.
std::string membersOf(const QJsonValue& object) {
    const auto text = QJsonDocument(object.toObject()).toJson(QJsonDocument::Compact).toStdString();
    return text.substr(1, text.size() - 2);
}

class ReachTest : public WebFixture {
protected:
    /// Plays the event of a row, unbarred and behind the bar. The page is told again what holds.
    void refuses(const JsonRow& row, Bar bar) {
        const std::string members = membersOf(row["event"]), name = row.text("widget");
        Scene free;
        show(free.window);
        say(free.window, *free.widgets.at(name), members);
        EXPECT_EQ(free.heard, 1) << "nothing to refuse";
        Scene scene;
        show(scene.window);
        DVWidget2& widget = *scene.widgets.at(name);
        bar(scene, widget);
        const std::string before = scene.state();
        client.take();
        say(scene.window, widget, members);
        EXPECT_EQ(scene.heard, 0);
        EXPECT_EQ(scene.state(), row["after"].toString(before.c_str()).toStdString());
        std::vector<std::string> told;
        for (const QJsonValue property : row["told"].toArray()) {
            told.push_back(sent(widget, row.text("type"), membersOf(property)));
        }
        EXPECT_THAT(client.takeTexts(), ElementsAreArray(told));
    }
};

TEST_F(ReachTest, whatNobodyCanUseTellsTheProgramNothing) {
    for (const JsonRow& row : readRows(REACH, "events")) {
        for (const auto& [name, bar] : s_everywhere) {
            SCOPED_TRACE(row.name + ", " + name);
            refuses(row, bar);
        }
    }
}

TEST_F(ReachTest, norDoesWhatIsNotThere) {
    for (const JsonRow& row : readRows(REACH, "absent")) {
        SCOPED_TRACE(row.name + ", " + row.text("bar"));
        refuses(row, s_absence.at(row.text("bar")));
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
