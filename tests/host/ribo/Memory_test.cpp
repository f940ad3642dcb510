#include <new>

#include "FailingAllocation.h"
#include "WorkshopTest.h"

namespace host::test {

namespace {

class Memory : public WorkshopTest {
protected:
    /// Makes what is made on demand, and every kind of value; tells what came of it.
    static std::string useEverything() {
        ribo::COSNamespace::addNamespace(describe<Workshop>());
        ribo::COSNamespace::addNamespace(describe<Room>("attic"), *workshop());
        const ArrayPointer texts = made(std::vector<std::u16string>{u"a", u"b, of some length"});
        const ArrayPointer lamp = made(Lamp());
        ArrayPointer crate = made(Crate(7, u"a label that takes storage of its own"));
        const std::u16string_view name = u"a field that takes storage of its own";
        kaArray* const value = crate.get();
        const ArrayPointer record(kaCreateStructScalar(1, &name, &value));
        static_cast<void>(crate.release());  // the record owns it
        const ArrayPointer copy(kaDuplicateArray(record.get()));
        const auto& pick = *workshop()->getFunction(interned("pick"));
        return call(pick, {texts.get()}) + call(pick, {lamp.get()}) +
               invoke("weigh", {kaGetField(copy.get(), name)}) + invoke("turn", {lamp.get()}) +
               construct({}) + std::to_string(workshop()->getFunctions().size());
    }
};

TEST_F(Memory, RunsOutAnywhereAndNothingStaysBehindOrHalfDone) {
    leave();
    const std::string whole = useEverything();
    std::size_t number = 0;
    for (bool hasFailed = true; hasFailed; ++number) {
        SCOPED_TRACE(number);
        leave();
        {
            const FailingAllocation failing(number);
            try {
                useEverything();
            } catch (const std::bad_alloc&) {
            }
            hasFailed = failing.hasFailed();
        }
        ASSERT_EQ(useEverything(), whole);
        ASSERT_EQ(Crate::s_count + Lamp::s_count, 0);
        leave();
        ASSERT_EQ(CrateClass::s_count + Workshop::s_count + Room::s_count, 0);
    }
    EXPECT_GT(number, 100u);
}

}  // namespace

}  // namespace host::test
