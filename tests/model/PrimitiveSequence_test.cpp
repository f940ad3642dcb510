#include "model/PrimitiveSequence.h"

#include <gmock/gmock.h>

#include <random>

#include "model/Model.h"

namespace {

using pf::zero::Model;
using pf::zero::PrimitiveSequence;
using pf::zero::Ref;
using pf::zero::SequenceEdit;

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

/// Follows the records as a page would.
class Mirror : public pf::zero::ChangeListener {
public:
    void onChanges(const std::vector<pf::zero::Change>& batch) noexcept override {
        for (const auto& change : batch) {
            ++records;
            apply(std::get<SequenceEdit>(change.value));
        }
    }
    int records = 0;
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

/// Every change here alters the number of items, so an unchanged size is an unchanged list.
void changeRandomly(PrimitiveSequence<std::u16string>& items, std::mt19937& random) {
    const std::u16string item(1, static_cast<char16_t>(u'a' + random() % 26));
    const std::size_t index = random() % 12;
    switch (random() % 8) {
        case 0:
            return items.clear();
        case 1:
        case 2:
            return items.erase(index);
        case 3:
            return items.insert(index, {item, item + u"'"});
        case 4:
            return items.insert(index, {});
        default:
            items.push_back(item);
    }
}

TEST(Sequence, OneRecordPerModificationIsEnoughToFollowIt) {
    const auto seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    Ref<Model> model = Model::create({});
    const Ref<List> list(new List);
    model->insert(*list);
    Mirror mirror;
    model->setChangeListener(&mirror);
    for (int step = 0; step < 2000; ++step) {
        const std::size_t before = list->items.size();
        mirror.records = 0;
        changeRandomly(list->items, random);
        ASSERT_EQ(mirror.items, list->items.items()) << "step " << step;
        ASSERT_EQ(mirror.records, before != list->items.size() ? 1 : 0) << "step " << step;
    }
    model = {};
    list->items.push_back(u"without a model");
    EXPECT_EQ(list->items.size(), mirror.items.size() + 1);
}

}  // namespace
