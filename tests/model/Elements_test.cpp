#include <gmock/gmock.h>

#include "model/Button.h"
#include "model/ChangeRecorder.h"
#include "model/CheckBox.h"
#include "model/Edit.h"
#include "model/Text.h"

namespace {

using model_test::ChangeRecorder;
using pf::zero::Model;
using testing::ElementsAre;
using Batch = ChangeRecorder::Batch;

/// One of each kind, in a model that is listened to.
class Elements : public testing::Test {
protected:
    const pf::zero::Ref<Model> m_model = Model::create({});
    const tdom::Button m_button = tdom::Button::create(m_model);
    const tdom::CheckBox m_box = tdom::CheckBox::create(m_model);
    const tdom::Edit m_edit = tdom::Edit::create(m_model);
    const tdom::Text m_text = tdom::Text::create(m_model);
    ChangeRecorder m_recorder{m_model};
};

// What each property is called, and what a description has, stands in the rows that both sides
// replay.
TEST_F(Elements, RecordAPropertyOnceIfItChanges) {
    {
        const Model::ChangeGroup group(m_model);
        for (int round = 0; round < 2; ++round) {
            m_button->setTag(u"7");
            m_text->setVisible(false);
            m_box->setChecked(true);
        }
    }
    for (const std::optional<bool> enabled : {std::optional<bool>(), {true}, {false}}) {
        m_edit->setEnabled(enabled);
        EXPECT_EQ(m_edit->isEnabled(), enabled != false);
    }
    EXPECT_THAT(m_recorder.batches, ElementsAre(Batch{"tag=7", "visible=false", "checked=true"},
                                                Batch{"enable=true"}, Batch{"enable=false"}));
    EXPECT_EQ(m_button->getId(), u"7");
    EXPECT_EQ(m_text->getId(), m_text->getUuid().toU16String());
}

TEST_F(Elements, DowncastGivesTheSameElementOnlyForItsOwnTypes) {
    const tdom::Base base = m_box;
    EXPECT_EQ(tdom::as<tdom::CheckBox>(base), m_box);
    EXPECT_EQ(tdom::as<tdom::BaseButton>(base), m_box);
    EXPECT_FALSE(tdom::as<tdom::Button>(base));
    EXPECT_FALSE(tdom::as<tdom::BaseButton>(m_edit));
    EXPECT_FALSE(tdom::as<tdom::Text>(tdom::Base()));
}

}  // namespace
