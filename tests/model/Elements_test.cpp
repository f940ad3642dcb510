#include <gmock/gmock.h>

#include <functional>
#include <string>

#include "model/Button.h"
#include "model/ChangeRecorder.h"
#include "model/CheckBox.h"
#include "model/Edit.h"
#include "model/Text.h"

namespace {

using model_test::ChangeRecorder;
using pf::zero::Model;
using pf::zero::Ref;
using pf::zero::Uuid;
using testing::ElementsAre;
using Batch = ChangeRecorder::Batch;

/// One of each kind, in a model that is listened to.
struct Elements {
    Ref<Model> model = Model::create({});
    tdom::Button button = tdom::Button::create(model);
    tdom::CheckBox box = tdom::CheckBox::create(model);
    tdom::Edit edit = tdom::Edit::create(model);
    tdom::Text text = tdom::Text::create(model);
    ChangeRecorder recorder{model};
};

struct SetterRow {
    const char* name;
    std::function<void(Elements&)> unchanged;  ///< writes the value that the property starts with
    std::function<void(Elements&)> changed;    ///< writes another
    const char* record;
};

const SetterRow setterRows[] = {
    {"tag", [](Elements& e) { e.button->setTag({}); }, [](Elements& e) { e.button->setTag(u"7"); },
     "tag=\"7\""},
    {"visible", [](Elements& e) { e.text->setVisible(true); },
     [](Elements& e) { e.text->setVisible(false); }, "visible=false"},
    {"enabledUnset", [](Elements& e) { e.edit->setEnabled(std::nullopt); },
     [](Elements& e) { e.edit->setEnabled(true); }, "enable=true"},
    {"disabled", [](Elements& e) { e.edit->setEnabled({}); },
     [](Elements& e) { e.edit->setEnabled(false); }, "enable=false"},
    {"tooltip", [](Elements& e) { e.box->setTooltip(u""); },
     [](Elements& e) { e.box->setTooltip(u"hint"); }, "tooltip=\"hint\""},
    {"label", [](Elements& e) { e.box->setLabel(u""); }, [](Elements& e) { e.box->setLabel(u"L"); },
     "label=\"L\""},
    {"icon", [](Elements& e) { e.button->setIcon(u""); },
     [](Elements& e) { e.button->setIcon(u"a.png"); }, "icon=\"a.png\""},
    {"checkable", [](Elements& e) { e.button->setCheckable(false); },
     [](Elements& e) { e.button->setCheckable(true); }, "checkable=true"},
    {"checked", [](Elements& e) { e.box->setChecked(false); },
     [](Elements& e) { e.box->setChecked(true); }, "checked=true"},
    {"defaultbutton", [](Elements& e) { e.button->setDefaultbutton(false); },
     [](Elements& e) { e.button->setDefaultbutton(true); }, "defaultbutton=true"},
    {"editText", [](Elements& e) { e.edit->setText(u""); },
     [](Elements& e) { e.edit->setText(u"t"); }, "text=\"t\""},
    {"placeholder", [](Elements& e) { e.edit->setPlaceholder(u""); },
     [](Elements& e) { e.edit->setPlaceholder(u"p"); }, "placeholder=\"p\""},
    {"textText", [](Elements& e) { e.text->setText(u""); },
     [](Elements& e) { e.text->setText(u"t"); }, "text=\"t\""},
};

class ElementSetter : public testing::TestWithParam<SetterRow> {};

TEST_P(ElementSetter, RecordsOneChangeOnlyWhenTheValueDiffers) {
    Elements elements;
    GetParam().unchanged(elements);
    EXPECT_TRUE(elements.recorder.batches.empty());
    GetParam().changed(elements);
    GetParam().changed(elements);
    EXPECT_THAT(elements.recorder.batches, ElementsAre(Batch{GetParam().record}));
}

INSTANTIATE_TEST_SUITE_P(All, ElementSetter, testing::ValuesIn(setterRows),
                         [](const auto& row) { return row.param.name; });

TEST(Elements, UnsetEnabledCountsAsEnabledAndCanBeUnsetAgain) {
    Elements elements;
    EXPECT_TRUE(elements.edit->isEnabled());
    elements.edit->setEnabled(false);
    EXPECT_FALSE(elements.edit->isEnabled());
    elements.edit->setEnabled(std::nullopt);
    EXPECT_TRUE(elements.edit->isEnabled());
    EXPECT_THAT(elements.recorder.batches,
                ElementsAre(Batch{"enable=false"}, Batch{"enable=none"}));
}

TEST(Elements, IdIsTheTagOnceThereIsOne) {
    Elements elements;
    EXPECT_EQ(elements.text->getId(), elements.text->getUuid().toU16String());
    elements.text->setTag(u"4294967295");
    EXPECT_EQ(elements.text->getId(), u"4294967295");
    elements.text->setTag(u"");
    EXPECT_EQ(elements.text->getId(), elements.text->getUuid().toU16String());
}

TEST(Elements, CheckBoxThatStartsOnIsCreatedAndSetInOneBatch) {
    Elements elements;
    const auto on = tdom::CheckBox::create(elements.model, Uuid::generate(), true);
    EXPECT_TRUE(on->isChecked());
    EXPECT_THAT(elements.recorder.batches, ElementsAre(Batch{"+CheckBox", "checked=true"}));
}

TEST(Elements, DowncastGivesTheSameElementOnlyForItsOwnTypes) {
    const Elements elements;
    const tdom::Base base = elements.box;
    EXPECT_EQ(tdom::as<tdom::CheckBox>(base), elements.box);
    EXPECT_EQ(tdom::as<tdom::BaseButton>(base), elements.box);
    EXPECT_EQ(tdom::as<tdom::Element>(base), elements.box);
    EXPECT_EQ(tdom::as<tdom::Base>(base), elements.box);
    EXPECT_FALSE(tdom::as<tdom::Button>(base));
    EXPECT_FALSE(tdom::as<tdom::Edit>(base));
    EXPECT_FALSE(tdom::as<tdom::Text>(tdom::Base()));
    EXPECT_FALSE(tdom::as<tdom::BaseButton>(elements.edit));
}

struct DescriptionRow {
    const char* name;
    std::function<tdom::Base(const Elements&)> element;
    std::vector<std::string> properties;
};

const DescriptionRow descriptionRows[] = {
    {"Button",
     [](const Elements& e) { return e.button; },
     {"tag=\"\"", "visible=true", "enable=none", "tooltip=\"\"", "label=\"\"", "icon=\"\"",
      "checkable=false", "checked=false", "defaultbutton=false"}},
    {"CheckBox",
     [](const Elements& e) { return e.box; },
     {"tag=\"\"", "visible=true", "enable=none", "tooltip=\"\"", "label=\"\"", "icon=\"\"",
      "checkable=false", "checked=false"}},
    {"Edit",
     [](const Elements& e) { return e.edit; },
     {"tag=\"\"", "visible=true", "enable=none", "tooltip=\"\"", "text=\"\"", "placeholder=\"\""}},
    {"Text",
     [](const Elements& e) { return e.text; },
     {"tag=\"\"", "visible=true", "enable=none", "tooltip=\"\"", "text=\"\""}},
};

class ElementDescription : public testing::TestWithParam<DescriptionRow> {};

TEST_P(ElementDescription, NamesTheTypeAndEveryProperty) {
    const Elements elements;
    const tdom::Base element = GetParam().element(elements);
    EXPECT_EQ(element->getTypeName(), GetParam().name);
    std::vector<std::string> properties;
    element->visitProperties([&](std::string_view name, const pf::zero::Value& value) {
        properties.push_back(std::string(name) + "=" + ChangeRecorder::text(value));
    });
    EXPECT_EQ(properties, GetParam().properties);
}

INSTANTIATE_TEST_SUITE_P(All, ElementDescription, testing::ValuesIn(descriptionRows),
                         [](const auto& row) { return row.param.name; });

}  // namespace
