#include "model/Ref.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

using pf::zero::Ref;

struct Counted {
    explicit Counted(int& living) : m_living(living) { ++m_living; }
    virtual ~Counted() { --m_living; }
    void addRef() { ++count; }
    void removeRef() {
        if (--count == 0) {
            delete this;
        }
    }
    int count = 0;
    int& m_living;
};

struct Derived : Counted {
    using Counted::Counted;
};

struct Row {
    const char* name;
    std::function<void(Ref<Counted>&)> act;
    int count;  ///< of the object afterwards; 0 when it is gone
};

const Row rows[] = {
    {"copyGoesAgain", [](Ref<Counted>& ref) { const Ref<Counted> copy(ref); }, 1},
    {"moveTakes", [](Ref<Counted>& ref) { const Ref<Counted> taken(std::move(ref)); }, 0},
    {"selfAssignment", [](Ref<Counted>& ref) { ref = *&ref; }, 1},
    {"selfMove", [](Ref<Counted>& ref) { ref = std::move(*&ref); }, 1},
    {"emptied", [](Ref<Counted>& ref) { ref = {}; }, 0},
    {"secondRefFromPointer", [](Ref<Counted>& ref) { const Ref<Counted> again(ref.get()); }, 1},
};

class RefCount : public testing::TestWithParam<Row> {};

TEST_P(RefCount, IsAsManyAsThereAreHolders) {
    int living = 0;
    {
        auto* object = new Derived(living);
        const Ref<Derived> derived(object);
        Ref<Counted> ref = derived;
        EXPECT_EQ(object->count, 2);
        GetParam().act(ref);
        EXPECT_EQ(object->count, 1 + GetParam().count);
        EXPECT_EQ(static_cast<bool>(ref), GetParam().count == 1);
    }
    EXPECT_EQ(living, 0);
}

INSTANTIATE_TEST_SUITE_P(All, RefCount, testing::ValuesIn(rows),
                         [](const auto& row) { return row.param.name; });

}  // namespace
