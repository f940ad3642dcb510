#include "model/PrimitiveSequence.h"

#include <gmock/gmock.h>

#include <random>

#include "model/ChangeRecorder.h"

namespace {

using model_test::ChangeRecorder;
using pf::zero::Model;
using pf::zero::PrimitiveSequence;
using pf::zero::Ref;
using pf::zero::SequenceEdit;
using testing::ElementsAre;
using testing::IsEmpty;
using Batch = ChangeRecorder::Batch;

/// The smallest element with a sequence.
class List : public pf::zero::ModelElement {
public:
    List() : ModelElement(pf::zero::Uuid::generate()) {}
    std::string_view typeName() const noexcept override { return "List"; }
    void visitProperties(const PropertyVisitor& visitor) const override {
        visitor("items", items.whole());
    }

    PrimitiveSequence<std::u16string> items{*this, "items"};
};

class Sequence : public testing::Test {
protected:
    Sequence() { m_model->insert(*m_list); }

    Ref<Model> m_model = Model::create({});
    Ref<List> m_list{new List};
    PrimitiveSequence<std::u16string>& m_items = m_list->items;
};

TEST_F(Sequence, EveryModificationIsOneRecordHoweverManyItemsItMoves) {
    ChangeRecorder recorder(m_model);
    m_items.push_back(u"a");
    m_items.insert(0, {u"x", u"y"});
    m_items.insert(99, {u"z"});
    m_items.erase(1);
    EXPECT_THAT(m_items.items(), ElementsAre(u"x", u"a", u"z"));
    m_items.clear();
    EXPECT_THAT(recorder.batches,
                ElementsAre(Batch{"items=0-0+\"a\""}, Batch{"items=0-0+\"x\"\"y\""},
                            Batch{"items=3-0+\"z\""}, Batch{"items=1-1+"}, Batch{"items=0-3+"}));
}

TEST_F(Sequence, WhatChangesNothingIsNotRecorded) {
    ChangeRecorder recorder(m_model);
    m_items.clear();
    m_items.erase(0);
    m_items.insert(0, {});
    EXPECT_THAT(recorder.batches, IsEmpty());
}

TEST_F(Sequence, WorksOnWithoutItsModel) {
    m_model = {};
    m_items.push_back(u"a");
    m_items.erase(0);
    EXPECT_TRUE(m_items.empty());
}

/// Follows the records as a mirror would.
class Mirror : public pf::zero::ChangeListener {
public:
    void onChanges(const std::vector<pf::zero::Change>& batch) noexcept override {
        for (const auto& change : batch) {
            apply(std::get<SequenceEdit>(change.value));
        }
    }
    std::vector<std::u16string> items;

private:
    void apply(const SequenceEdit& edit) {
        const auto first = items.begin() + static_cast<std::ptrdiff_t>(edit.index);
        auto place = items.erase(first, first + static_cast<std::ptrdiff_t>(edit.removed));
        for (const auto& item : edit.inserted) {
            place = items.insert(place, std::get<std::u16string>(item)) + 1;
        }
    }
};

TEST_F(Sequence, RecordsAreEnoughToFollowAnyChange) {
    const auto seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    Mirror mirror;
    m_model->setChangeListener(&mirror);
    for (int step = 0; step < 2000; ++step) {
        const std::u16string item(1, static_cast<char16_t>(u'a' + random() % 26));
        const std::size_t index = random() % 12;
        switch (random() % 8) {
            case 0:
                m_items.clear();
                break;
            case 1:
            case 2:
                m_items.erase(index);
                break;
            case 3:
                m_items.insert(index, {item, item + u"'"});
                break;
            default:
                m_items.push_back(item);
        }
        ASSERT_EQ(mirror.items, m_items.items()) << "step " << step;
    }
    m_model->setChangeListener(nullptr);
}

}  // namespace
