// What the program sets on a widget is there whenever the widget is shown, whatever descriptions
// leave out.

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "support/WebFixture.h"
#include "toolkit/DVButton2.h"
#include "toolkit/DVCheckBox2.h"
#include "toolkit/DVComboBox2.h"
#include "toolkit/DVEdit2.h"
#include "toolkit/DVGroupBox2.h"
#include "toolkit/DVPanel2.h"
#include "toolkit/DVText2.h"

namespace DOVA::test {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;

class KeptSettingsTest : public WebFixture {
protected:
    /// What is published, the description left out that comes first.
    std::vector<std::string> afterDescription(const std::function<void()>& action) {
        client.take();
        action();
        std::vector<std::string> texts = client.takeTexts();
        EXPECT_FALSE(texts.empty());
        if (!texts.empty()) {
            texts.erase(texts.begin());
        }
        return texts;
    }

    DVDialog2 window;
    DVPanel2 panel{&window};
};

TEST_F(KeptSettingsTest, descriptionsAreFollowedByWhatTheyLeaveOut) {
    const std::pair<void (*)(DVWidget2&), std::vector<const char*>> rows[] = {
        {[](DVWidget2& w) {
             w.setMinimumSize({10, 20});
         },
         {R"("setMinimumWidth":"10")", R"("setMinimumHeight":"20")"}},
        {[](DVWidget2& w) {
             w.setMaximumSize({10, -1});
             w.setMaximumSize({-1, 20});
         },
         {R"("setMaximumWidth":"10")", R"("setMaximumHeight":"20")"}},
        {[](DVWidget2& w) {
             w.setPreferredSize({1, 2});
         },
         {R"("setPreferredSize":"[1.000000,2.000000]")"}},
        {[](DVWidget2& w) {
             w.resize({3, 4});
             w.setPosition({1, 2, 3, 4});
             w.resize({5, 6});  // the last word
         },
         {R"("geometry":"[1,2,3,4]")", R"("resize":"[5.000000,6.000000]")"}},
        {[](DVWidget2& w) {
             w.moveTo({1, 2});
         },
         {R"("moveTo":"[1,2]")"}},
        {[](DVWidget2& w) { w.setObjectName("name"); }, {R"("objectName":"name")"}},
        {[](DVWidget2&) {}, {}},
    };
    for (const auto& [set, properties] : rows) {
        DVDialog2 dialog;
        DVGroupBox2 group(&dialog);
        DVButton2 button(&group);
        DVCheckBox2 box(&group);
        DVEdit2 edit(&group);
        DVText2 text(&group);
        DVComboBox2 combo(&group);
        std::vector<std::string> expected;
        const std::pair<DVWidget2*, const char*> widgets[] = {{&button, "Button"},
                                                              {&box, "CheckBox"},
                                                              {&edit, "Edit"},
                                                              {&text, "Text"},
                                                              {&combo, "ComboBox"}};
        set(group);  // described with all that it has
        for (const auto& [widget, type] : widgets) {
            set(*widget);
            for (const char* property : properties) {
                expected.push_back(sent(*widget, type, property));
            }
        }
        EXPECT_THAT(afterDescription([&] { dialog.show(); }), ElementsAreArray(expected));
        EXPECT_THAT(afterDescription([&] { group.show(); }), ElementsAreArray(expected));
        client.take();
        dialog.show();
        EXPECT_THAT(client.takeTexts(), ElementsAre()) << "nothing is described";
    }
}

TEST_F(KeptSettingsTest, theFocusIsGivenOnceAndToTheLastThatAskedForIt) {
    DVEdit2 first(&panel);
    DVEdit2 last(&panel);
    DVEdit2 early;
    last.setFocus();
    first.setFocus();
    panel.setFocus();
    last.setFocus();
    early.setFocus();
    const std::string focus = R"("setFocus":true)";
    EXPECT_THAT(afterDescription([&] { window.show(); }), ElementsAre(sent(last, "Edit", focus)));
    first.setFocus();
    EXPECT_THAT(afterDescription([&] { panel.show(); }), ElementsAre()) << "it is taken";
    early.setParent(&panel);
    EXPECT_THAT(afterDescription([&] { panel.show(); }), ElementsAre(sent(early, "Edit", focus)));
    client.say(RecordingClient::Root, R"({"clientReady":"other"})");
    EXPECT_THAT(afterDescription([&] { window.emitters()->showAgain.emit(); }), ElementsAre());
}

/// A description with an empty text shows the item.
TEST_F(KeptSettingsTest, aFieldThatWasEmptiedIsToldSo) {
    DVComboBox2 combo(&panel, {u"a", u"b"});
    combo.setEditable(true);
    const auto emptied = ElementsAre(sent(combo, "ComboBox", R"("text":"")"));
    const std::pair<std::function<void()>, bool> rows[] = {
        {[&] { combo.setSelection(1); }, false},
        {[&] { combo.setText(u""); }, true},
        {[&] { combo.setEditable(false); }, false},
        {[&] { combo.setEditable(true); }, false},
        {[&] { say(window, combo, R"("event":"onEdit","value":"")"); }, true},
        {[&] { combo.clear(); }, false},
        {[&] {
             combo.addItems({u"c", u"d"});
         },
         true},
        {[&] { say(window, combo, R"("event":"textShown","value":"d")"); }, false},
    };
    window.show();
    for (const auto& [act, isTold] : rows) {
        act();
        const auto texts = afterDescription([&] { panel.show(); });
        EXPECT_TRUE(isTold ? testing::Matches(emptied)(texts) : texts.empty());
    }
}

TEST_F(KeptSettingsTest, whatWasSetGoesWithItsWidget) {
    auto button = std::make_unique<DVButton2>(&panel);
    button->resize({1, 2});
    button->setFocus();
    button.reset();
    DVButton2 another(&panel);
    EXPECT_THAT(afterDescription([&] { window.show(); }), ElementsAre());
}

}  // namespace
}  // namespace DOVA::test
