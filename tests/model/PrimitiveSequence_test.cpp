#include "model/PrimitiveSequence.h"

#include <gmock/gmock.h>

#include "model/Model.h"

namespace {

using pf::zero::Model;
using pf::zero::Ref;
using testing::ElementsAre;

/// The smallest element with a sequence.
class List : public pf::zero::ModelElement {
public:
    List() : ModelElement(pf::zero::Uuid::generate()) {}
    std::string_view typeName() const noexcept override { return "List"; }
    void visitProperties(const PropertyVisitor& visitor) const override {
        visitor("items", items.whole());
    }

    pf::zero::PrimitiveSequence<std::u16string> items{*this, "items"};
};

/// Notes every edit as its index, the number of items that go and those that come.
struct Edits : pf::zero::ChangeListener {
    void onChanges(const std::vector<pf::zero::Change>& batch) noexcept override {
        for (const auto& change : batch) {
            const auto& edit = std::get<pf::zero::SequenceEdit>(change.value);
            std::string text =
                std::to_string(edit.index) + "-" + std::to_string(edit.removed) + "+";
            for (const auto& item : edit.inserted) {
                text += static_cast<char>(std::get<std::u16string>(item)[0]);
            }
            texts.push_back(text);
        }
    }
    std::vector<std::string> texts;
};

TEST(Sequence, RecordsOneEditPerModificationAndNoneForNothing) {
    Ref<Model> model = Model::create({});
    const Ref<List> list(new List);
    model->insert(*list);
    Edits edits;
    model->setChangeListener(&edits);
    list->items.push_back(u"a");
    list->items.insert(9, {u"b", u"c"});
    list->items.insert(1, {u"d", u"e"});
    list->items.insert(0, {});
    list->items.erase(2);
    list->items.erase(4);
    EXPECT_THAT(list->items.items(), ElementsAre(u"a", u"d", u"b", u"c"));
    list->items.clear();
    list->items.clear();
    model = {};
    EXPECT_EQ(list->model(), nullptr);
    list->items.push_back(u"without a model");
    EXPECT_THAT(edits.texts, ElementsAre("0-0+a", "1-0+bc", "1-0+de", "2-1+", "0-4+"));
}

}  // namespace
