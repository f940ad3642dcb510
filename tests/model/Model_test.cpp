#include "model/Model.h"

#include <gmock/gmock.h>

#include <memory>
#include <set>

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
using testing::IsEmpty;
using Batch = ChangeRecorder::Batch;

Ref<Model> newModel() {
    return Model::create({});
}

TEST(Model, TellsCreationEveryChangeAndRemovalInOrder) {
    const auto model = newModel();
    ChangeRecorder recorder(model);
    {
        const auto edit = tdom::Edit::create(model);
        edit->setText(u"a");
        edit->setText(u"b");
    }
    EXPECT_THAT(recorder.batches, ElementsAre(Batch{"+Edit"}, Batch{"text=\"a\""},
                                              Batch{"text=\"b\""}, Batch{"-Edit"}));
}

TEST(Model, RecordsNameTheElementTheyAreAbout) {
    struct Names : pf::zero::ChangeListener {
        void onChanges(const std::vector<pf::zero::Change>& batch) noexcept override {
            for (const auto& change : batch) {
                elements.push_back(change.element);
            }
        }
        std::vector<Uuid> elements;
    } names;
    const auto model = newModel();
    const auto first = tdom::Text::create(model);
    const auto second = tdom::Text::create(model);
    model->setChangeListener(&names);
    second->setText(u"2");
    first->setText(u"1");
    model->setChangeListener(nullptr);
    EXPECT_THAT(names.elements, ElementsAre(second->getUuid(), first->getUuid()));
}

TEST(Model, CommitsNestedGroupsOnceWhenTheOutermostEnds) {
    const auto model = newModel();
    const auto button = tdom::Button::create(model);
    ChangeRecorder recorder(model);
    {
        const Model::ChangeGroup outer(model);
        button->setLabel(u"x");
        {
            const Model::ChangeGroup inner(model);
            button->setChecked(true);
        }
        EXPECT_THAT(recorder.batches, IsEmpty());
        button->setChecked(false);
    }
    EXPECT_THAT(recorder.batches,
                ElementsAre(Batch{"label=\"x\"", "checked=true", "checked=false"}));
}

TEST(Model, GroupWithoutChangeOrModelSaysNothing) {
    const auto model = newModel();
    ChangeRecorder recorder(model);
    { const Model::ChangeGroup nothing(model); }
    { const Model::ChangeGroup nowhere{Ref<Model>()}; }
    EXPECT_THAT(recorder.batches, IsEmpty());
}

TEST(Model, NewListenerDoesNotHearWhatWasBefore) {
    const auto model = newModel();
    const auto text = tdom::Text::create(model);
    const Model::ChangeGroup group(model);
    {
        ChangeRecorder early(model);
        text->setText(u"early");
    }
    ChangeRecorder late(model);
    text->setText(u"late");
    { const Model::ChangeGroup stillOpen(model); }
    EXPECT_THAT(late.batches, IsEmpty());
    EXPECT_EQ(text->getText(), u"late");
}

TEST(Model, WhatAListenerWritesComesAfterwardsNotNested) {
    struct Echo : pf::zero::ChangeListener {
        void onChanges(const std::vector<pf::zero::Change>& batch) noexcept override {
            ++depth;
            deepest = std::max(deepest, depth);
            lines.push_back(ChangeRecorder::line(batch.front()));
            target->setText(u"end");
            --depth;
        }
        tdom::Text target;
        int depth = 0;
        int deepest = 0;
        std::vector<std::string> lines;
    } echo;
    const auto model = newModel();
    echo.target = tdom::Text::create(model);
    model->setChangeListener(&echo);
    echo.target->setText(u"begin");
    model->setChangeListener(nullptr);
    EXPECT_THAT(echo.lines, ElementsAre("text=\"begin\"", "text=\"end\""));
    EXPECT_EQ(echo.deepest, 1);
}

TEST(Model, ListenerMayDropEverythingWhileItIsCalled) {
    struct Destroyer : pf::zero::ChangeListener {
        void onChanges(const std::vector<pf::zero::Change>&) noexcept override {
            ++calls;
            text = {};
            model = {};
        }
        Ref<Model> model = newModel();
        tdom::Text text = tdom::Text::create(model);
        int calls = 0;
    } destroyer;
    destroyer.model->setChangeListener(&destroyer);
    destroyer.text->setText(u"last words");
    EXPECT_EQ(destroyer.calls, 2) << "the write, then the removal that it caused";
    EXPECT_FALSE(destroyer.model);
}

TEST(Model, ListenerMayDestroyItselfWhileItIsCalled) {
    struct OneShot : pf::zero::ChangeListener {
        void onChanges(const std::vector<pf::zero::Change>&) noexcept override {
            text->setText(u"for nobody");
            model->setChangeListener(nullptr);
            self.reset();
        }
        Ref<Model> model;
        tdom::Text text;
        std::unique_ptr<OneShot> self;
    };
    const auto model = newModel();
    const auto text = tdom::Text::create(model);
    auto listener = std::make_unique<OneShot>();
    OneShot* raw = listener.get();
    raw->model = model;
    raw->text = text;
    raw->self = std::move(listener);
    model->setChangeListener(raw);
    text->setText(u"once");
    EXPECT_EQ(text->getText(), u"for nobody");
    EXPECT_FALSE(model->isRecording());
}

TEST(Model, ElementsOutliveTheirModel) {
    tdom::Button button;
    {
        const auto model = newModel();
        button = tdom::Button::create(model);
        button->setLabel(u"kept");
    }
    EXPECT_EQ(button->model(), nullptr);
    button->setLabel(button->getLabel() + u" and changed");
    EXPECT_EQ(button->getLabel(), u"kept and changed");
}

TEST(Model, LastHandleTakesTheElementOut) {
    const auto model = newModel();
    auto button = tdom::Button::create(model);
    const Uuid uuid = button->getUuid();
    tdom::Base other = button;
    button = {};
    EXPECT_TRUE(model->find(uuid));
    other = {};
    EXPECT_FALSE(model->find(uuid));
    EXPECT_EQ(model->elementCount(), 0U);
}

TEST(Model, TakenUuidAndMissingModelGiveEmptyHandles) {
    const auto model = newModel();
    const auto first = tdom::Button::create(model);
    ChangeRecorder recorder(model);
    EXPECT_FALSE(tdom::Edit::create(model, first->getUuid()));
    EXPECT_FALSE(tdom::CheckBox::create(model, first->getUuid(), true));
    EXPECT_FALSE(tdom::CheckBox::create({}, Uuid::generate(), true));
    EXPECT_EQ(model->elementCount(), 1U);
    EXPECT_THAT(recorder.batches, IsEmpty());
}

TEST(Model, UuidIsFreeAgainOnceItsElementIsGone) {
    const auto model = newModel();
    const Uuid uuid = Uuid::generate();
    EXPECT_TRUE(tdom::Button::create(model, uuid));
    EXPECT_TRUE(tdom::Edit::create(model, uuid));
}

TEST(Model, WalkVisitsInOrderOfArrivalAndAllowsChangesMeanwhile) {
    const auto model = newModel();
    std::vector<tdom::Base> elements{tdom::Text::create(model), tdom::Edit::create(model),
                                     tdom::Button::create(model)};
    elements.erase(elements.begin() + 1);
    elements.push_back(tdom::CheckBox::create(model));
    std::vector<std::string> seen;
    model->forEachElement([&](const pf::zero::ModelElement& element) {
        seen.emplace_back(element.typeName());
        elements.clear();
        elements.push_back(tdom::Edit::create(model));
    });
    EXPECT_THAT(seen, ElementsAre("Text", "Button", "CheckBox"));
    EXPECT_EQ(model->elementCount(), 1U);
}

TEST(Model, FindsEachOfManyElements) {
    const auto model = newModel();
    std::vector<tdom::Text> texts;
    std::set<Uuid> uuids;
    for (int count = 0; count < 2000; ++count) {
        texts.push_back(tdom::Text::create(model));
        uuids.insert(texts.back()->getUuid());
    }
    EXPECT_EQ(uuids.size(), texts.size());
    for (const tdom::Text& text : texts) {
        ASSERT_EQ(model->find(text->getUuid()).get(), text.operator->());
    }
}

}  // namespace
