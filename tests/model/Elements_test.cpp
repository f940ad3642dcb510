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

TEST_F(Elements, RecordEveryPropertyOnceAndDescribeThemAll) {
    {
        const Model::ChangeGroup group(m_model);
        for (int round = 0; round < 2; ++round) {
            m_button->setTag(u"7");
            m_text->setVisible(false);
            m_box->setTooltip(u"hint");
            m_box->setLabel(u"L");
            m_button->setIcon(u"a.png");
            m_button->setCheckable(true);
            m_box->setChecked(true);
            m_button->setDefaultbutton(true);
            m_edit->setText(u"e");
            m_edit->setPlaceholder(u"p");
            m_text->setText(u"t");
        }
    }
    for (const std::optional<bool> enabled : {std::optional<bool>(), {true}, {false}}) {
        m_edit->setEnabled(enabled);
        EXPECT_EQ(m_edit->isEnabled(), enabled != false);
    }
    EXPECT_THAT(m_recorder.batches,
                ElementsAre(Batch{"tag=7", "visible=false", "tooltip=hint", "label=L", "icon=a.png",
                                  "checkable=true", "checked=true", "defaultbutton=true", "text=e",
                                  "placeholder=p", "text=t"},
                            Batch{"enable=true"}, Batch{"enable=false"}));
    std::vector<std::string> lines;
    m_model->forEachElement([&](const pf::zero::ModelElement& element) {
        lines.push_back(std::string(element.typeName()) + ":");
        element.visitProperties([&](std::string_view name, const pf::zero::Value& value) {
            lines.back() += " " + std::string(name) + "=" + ChangeRecorder::text(value);
        });
    });
    EXPECT_THAT(lines,
                ElementsAre("Button: tag=7 visible=true enable=none tooltip= label= icon=a.png "
                            "checkable=true checked=false defaultbutton=true",
                            "CheckBox: tag= visible=true enable=none tooltip=hint label=L icon= "
                            "checkable=false checked=true",
                            "Edit: tag= visible=true enable=false tooltip= text=e placeholder=p",
                            "Text: tag= visible=false enable=none tooltip= text=t"));
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
