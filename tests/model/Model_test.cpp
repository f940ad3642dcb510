#include "model/Model.h"

#include <gmock/gmock.h>

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

class ModelTest : public testing::Test {
protected:
    Ref<Model> m_model = Model::create({});
    tdom::Text m_text = tdom::Text::create(m_model);
    ChangeRecorder m_recorder{m_model};
};

TEST_F(ModelTest, TellsCreationEveryChangeAndRemovalInOrderWithTheirElement) {
    auto edit = tdom::Edit::create(m_model);
    const Uuid uuid = edit->getUuid();
    edit->setText(u"a");
    m_text->setText(u"b");
    edit = {};
    EXPECT_THAT(m_recorder.batches,
                ElementsAre(Batch{"+Edit"}, Batch{"text=a"}, Batch{"text=b"}, Batch{"-Edit"}));
    EXPECT_THAT(m_recorder.elements, ElementsAre(uuid, uuid, m_text->getUuid(), uuid));
}

TEST_F(ModelTest, CommitsNestedGroupsOnceToTheListenerOfTheirEnd) {
    {
        const Model::ChangeGroup outer(m_model);
        m_text->setText(u"x");
        m_model->setChangeListener(&m_recorder);  // a new listener does not hear what was before
        {
            const Model::ChangeGroup inner(m_model);
            m_text->setVisible(false);
        }
        EXPECT_THAT(m_recorder.batches, IsEmpty());
        m_text->setVisible(true);
    }
    { const Model::ChangeGroup nothing(m_model); }
    { const Model::ChangeGroup nowhere{Ref<Model>()}; }
    EXPECT_THAT(m_recorder.batches, ElementsAre(Batch{"visible=false", "visible=true"}));
}

TEST_F(ModelTest, WhatAListenerDoesComesAfterwardsEvenIfNothingIsLeft) {
    m_recorder.meanwhile = [this] {
        if (m_text) {
            m_text->setText(u"last words");
        }
        m_text = {};
        m_model = {};
        m_recorder.model = {};
    };
    m_text->setText(u"begin");
    EXPECT_THAT(m_recorder.batches,
                ElementsAre(Batch{"text=begin"}, Batch{"text=last words", "-Text"}));
}

TEST_F(ModelTest, ListenerMayDestroyItselfWhileItIsCalled) {
    struct OneShot : pf::zero::ChangeListener {
        explicit OneShot(const tdom::Text& text) : m_text(text) {}
        void onChanges(const std::vector<pf::zero::Change>&) noexcept override {
            m_text->setText(u"for nobody");
            m_text->model()->setChangeListener(nullptr);
            delete this;
        }
        tdom::Text m_text;
    };
    m_model->setChangeListener(new OneShot(m_text));
    m_text->setText(u"once");
    EXPECT_EQ(m_text->getText(), u"for nobody");
    EXPECT_FALSE(m_model->isRecording());
}

TEST_F(ModelTest, LastHandleTakesTheElementOutAndFreesItsUuid) {
    auto button = tdom::Button::create(m_model);
    const Uuid uuid = button->getUuid();
    tdom::Base other = button;
    other = *&other;
    tdom::Button taken = std::move(button);
    EXPECT_EQ(m_model->find(uuid).get(), taken.operator->());
    taken = {};
    EXPECT_EQ(m_model->find(uuid).get(), other.operator->());
    other = {};
    EXPECT_FALSE(m_model->find(uuid));
    EXPECT_EQ(m_model->elementCount(), 1U);
    EXPECT_TRUE(tdom::Edit::create(m_model, uuid));
}

TEST_F(ModelTest, TakenUuidAndMissingModelGiveEmptyHandles) {
    EXPECT_FALSE(tdom::CheckBox::create(m_model, m_text->getUuid(), true));
    EXPECT_FALSE(tdom::CheckBox::create({}, Uuid::generate(), true));
    EXPECT_TRUE(m_model->find(m_text->getUuid()));
    const auto on = tdom::CheckBox::create(m_model, Uuid::generate(), true);
    EXPECT_THAT(m_recorder.batches, ElementsAre(Batch{"+CheckBox", "checked=true"}));
}

TEST_F(ModelTest, WalkVisitsInOrderOfArrivalAndAllowsChangesMeanwhile) {
    std::vector<tdom::Base> elements{tdom::Edit::create(m_model), tdom::Button::create(m_model)};
    elements.erase(elements.begin());
    elements.push_back(tdom::CheckBox::create(m_model));
    std::vector<std::string> seen;
    m_model->forEachElement([&](const pf::zero::ModelElement& element) {
        seen.emplace_back(element.typeName());
        elements = {tdom::Edit::create(m_model)};
    });
    EXPECT_THAT(seen, ElementsAre("Text", "Button", "CheckBox"));
    EXPECT_EQ(m_model->elementCount(), 2U);
}

}  // namespace
