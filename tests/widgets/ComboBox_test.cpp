#include <functional>
#include <memory>

#include "core/WebFactory2.h"
#include "support/WebFixture.h"
#include "toolkit/DVComboBox2.h"
#include "toolkit/DVFactory2.h"
#include "widgets/WebComboBox2.h"

namespace DOVA::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Items = std::vector<std::u16string>;

/// Counts what is committed to the model document.
class Commits : public pf::zero::ChangeListener {
public:
    Commits() { m_model->setChangeListener(this); }
    ~Commits() override { m_model->setChangeListener(nullptr); }
    void onChanges(const std::vector<pf::zero::Change>& batch) noexcept override {
        sizes.push_back(batch.size());
    }

    std::vector<std::size_t> sizes;

private:
    const pf::zero::Ref<pf::zero::Model> m_model = WebFactory2::getModel();
};

class ComboBoxTest : public WebFixture {
protected:
    ComboBoxTest() { show(window); }

    WebComboBox2& web() { return *webObject<WebComboBox2>(combo); }

    DVDialog2 window;
    DVComboBox2 combo{&window, {u"a", u"b"}};
};

TEST_F(ComboBoxTest, theFirstItemIsNotAnsweredByItsIndex) {
    const std::pair<int, const char16_t*> rows[] = {
        {-1, u""}, {0, u""}, {1, u"b"}, {2, u""}, {2147483647, u""}};
    for (const auto& [index, item] : rows) {
        EXPECT_EQ(web().doGetItemAtU(index), item) << index;
    }
}

/// Items between others are one change of the document, items at the end one each.
TEST_F(ComboBoxTest, howManyChangesOfTheDocumentItemsAre) {
    const Items many(1000, u"x");
    const std::vector<std::pair<std::size_t, std::function<void()>>> rows{
        {1000, [&] { combo.addItems(many); }},
        {1, [&] { combo.insertItems(1, many); }},
        {1000, [&] { web().doAddItemsU(many, ""); }},
        {1000, [&] { combo.insertItems(combo.count(), many); }},
        {0, [&] { combo.insertItems(1, {}); }},
        {1, [&] { combo.clear(); }}};
    for (const auto& [count, change] : rows) {
        Commits commits;
        change();
        EXPECT_EQ(commits.sizes, std::vector<std::size_t>(count, 1));
    }
}

TEST_F(ComboBoxTest, theProgramEditsTheList) {
    combo.addItem(u"d");
    combo.insertItems(2, {u"c"});
    combo.removeItem(0);
    combo.removeItem(-1);
    combo.removeItem(3);
    EXPECT_THAT(combo.items(), ElementsAre(u"b", u"c", u"d"));
    combo.clear();
    EXPECT_EQ(combo.count(), 0);
    EXPECT_EQ(combo.selection(), -1);
}

TEST_F(ComboBoxTest, theSelectedItemFollowsProgramAndUser) {
    const std::pair<int, const char16_t*> rows[] = {{0, u"a"}, {1, u"b"}, {2, u""}, {-1, u""}};
    for (const auto& [index, item] : rows) {
        combo.setSelection(index);
        EXPECT_EQ(combo.selectedItem(), item) << index;
    }
    std::vector<DVComboBox2*> boxes;
    std::u16string heard;
    combo.onSelect([&](const DVComboBoxSelectEvent2& event) {
        boxes.push_back(event.comboBox());
        heard = combo.selectedItem();
    });
    combo.onEdit([&](const DVComboBoxEditEvent2& event) { boxes.push_back(event.comboBox()); });
    say(window, combo, R"("event":"onSelectionChange","index":1,"value":"b")");
    say(window, combo, R"("event":"onEdit","value":"x")");
    EXPECT_EQ(heard, u"b");
    EXPECT_THAT(boxes, ElementsAre(&combo, &combo));
}

/// The field once showed the chosen item while the program still had the text from before.
TEST_F(ComboBoxTest, theFieldHasWhatWasLastChosenSetOrTyped) {
    int heard = 0;
    combo.onSelect([&] { ++heard; });
    const auto userChooses = [this] {
        say(window, combo, R"("event":"onSelectionChange","index":1,"value":"b")");
    };
    const struct {
        std::function<void()> step;
        const char16_t* text;
        int selection;
        int heard;
    } rows[] = {
        {[&] { combo.setSelection(0); }, u"", 0, 0},
        {[&] { combo.setEditable(true); }, u"a", 0, 0},
        {[&] { combo.setSelection(1); }, u"b", 1, 0},
        {userChooses, u"b", 1, 0},  // the display's answer
        {[&] { combo.setText(u"x"); }, u"x", 1, 0},
        {[&] { combo.setEditable(true); }, u"x", 1, 0},
        {userChooses, u"b", 1, 1},
        {[&] { say(window, combo, R"("event":"onEdit","value":"typed")"); }, u"typed", 1, 1},
        {[&] { combo.removeItem(1); }, u"typed", 1, 1},
        {[&] { combo.setSelection(1); }, u"", 1, 1},
        {[&] { combo.addItem(u"c"); }, u"", 1, 1},
        {[&] { combo.setSelection(1); }, u"c", 1, 1},
        {[&] { combo.setSelection(-1); }, u"", -1, 1},
    };
    for (const auto& row : rows) {
        row.step();
        EXPECT_EQ(combo.text(), row.text) << "row " << &row - rows;
        EXPECT_EQ(combo.selection(), row.selection) << "row " << &row - rows;
        EXPECT_EQ(heard, row.heard) << "row " << &row - rows;
    }
}

/// A handler may wait for another thread that asks whether an object is alive.
TEST_F(ComboBoxTest, itsEventsAreEmittedWithoutTheObjectLock) {
    std::vector<bool> locked;
    const auto ask = [&] { locked.push_back(isObjectLockHeld()); };
    combo.onSelect(ask);
    combo.onEdit(ask);
    combo.onEditFinish(ask);
    say(window, combo, R"("event":"onSelectionChange")");
    say(window, combo, R"("event":"onEdit")");
    say(window, combo, R"("event":"onEditFinish")");
    EXPECT_THAT(locked, ElementsAre(false, false, false));
}

TEST_F(ComboBoxTest, withoutImplementationItAnswersDefaults) {
    combo.setSelection(1);
    window.close();
    combo.addItems({u"c"});
    combo.setEditable(true);
    EXPECT_THAT(combo.items(), IsEmpty());
    EXPECT_EQ(combo.selectedItem(), u"");
}

TEST_F(ComboBoxTest, everyRequestIsBoundOnce) {
    const DVComboBox2Emitters& all = *combo.emitters();
    expectBoundOnce(all.insertItemsU, all.removeItems, all.getItemsU, all.setSelection,
                    all.getSelection, all.setEditable);
}

}  // namespace
}  // namespace DOVA::test
