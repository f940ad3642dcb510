#include "WorkshopTest.h"

namespace host::test {

namespace {

using ribo::COSNamespace;

class Namespaces : public WorkshopTest {
protected:
    static COSNamespace* find(const char* fullName) {
        return COSNamespace::getNamespace(interned(fullName));
    }
    static COSNamespace& add(Room* room, COSNamespace& outer) {
        return *COSNamespace::addNamespace(room, outer);
    }
};

TEST_F(Namespaces, ListTheirMembersOnceWhenAMemberIsAskedFor) {
    const struct {
        const char* name;
        void (*ask)();
        int listed;
    } rows[] = {
        {"namespace", [] { find("workshop"); }, 0},
        {"names", [] { workshop()->getInfo().getName(), workshop()->getFullName(); }, 0},
        {"top", [] { COSNamespace::getTopNamespaces(); }, 0},
        {"function", [] { workshop()->getFunction(interned("pick")); }, 1},
        {"functions", [] { workshop()->getFunctions(); }, 1},
        {"class", [] { workshop()->getClassInside(interned("Crate")); }, 1},
        {"classOfFullName", [] { COSNamespace::getClass(interned("workshop.Crate")); }, 1},
        {"instance", [] { made(Crate()); }, 1},
        {"classes", [] { workshop()->getClasses(); }, 1},
        {"inner", [] { find("workshop.attic"); }, 1},
        {"innerOnes", [] { workshop()->getInnerNamespaces(); }, 1},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        leave();
        enter();
        row.ask();
        row.ask();
        EXPECT_EQ(Workshop::s_listed, row.listed);
        EXPECT_EQ(CrateClass::s_described, 0);
    }
    workshop()->getClassInside(interned("Crate"))->getMembers();
    workshop()->getClassInside(interned("Crate"))->getMembers();
    EXPECT_EQ(CrateClass::s_described, 1);
}

TEST_F(Namespaces, KeepTheOrderOfWhatIsAddedAndTheFirstOfAName) {
    std::string names;
    for (const auto& function : workshop()->getFunctions()) {
        names += function.getName().text().substr(0, 1);
    }
    EXPECT_EQ(names, "pppppppppppppsssss");
    ASSERT_EQ(workshop()->getClasses().size(), 2u);
    EXPECT_EQ(workshop()->getClasses()[0]->getFullName().text(), "workshop.Crate");
    EXPECT_EQ(workshop()->getClasses()[1]->getName().text(), "Lamp");
    EXPECT_EQ(CrateClass::s_count, 1);

    EXPECT_EQ(COSNamespace::addNamespace(describe<Workshop>()), workshop());
    EXPECT_EQ(Workshop::s_count, 1);
    EXPECT_EQ(COSNamespace::addNamespace(nullptr), nullptr);
}

TEST_F(Namespaces, AreFoundByTheirFullNamesAlone) {
    COSNamespace& annex = add(describe<Room>("annex"), *workshop());
    COSNamespace& inner = add(describe<Room>("workshop"), annex);
    EXPECT_EQ(find("workshop.annex"), &annex);
    EXPECT_EQ(ribo::cosiToNamespace(annex.getInnerNamespace(interned("workshop"))), &inner);
    EXPECT_EQ(COSNamespace::getNamespaceInterface(interned("workshop.annex.workshop")), &inner);
    EXPECT_EQ(ribo::cosiToNamespace(nullptr), nullptr);
    const std::string dots(1000000, '.');
    for (const char* name : {"", ".", "annex", "Workshop", "workshop.", ".workshop",
                             "workshop..annex", "workshop.annex.annex", dots.c_str()}) {
        EXPECT_EQ(find(name), nullptr) << name;
        EXPECT_EQ(COSNamespace::getClass(interned(name)), nullptr) << name;
    }
}

TEST_F(Namespaces, LoadWhatIsNotListedWhereTheirDescriptionsCan) {
    COSNamespace& annex = add(describe<Room>("annex"), *workshop());
    COSNamespace& closed = add(describe<Room>("closed", true, false), *workshop());
    Room::s_asked.clear();
    for (int time = 0; time < 2; ++time) {
        EXPECT_EQ(call(*annex.getFunction(interned("late")), {}), "true");
        EXPECT_NE(annex.getInnerNamespace(interned("late")), nullptr);
        EXPECT_NE(annex.getClassInside(interned("Crate")), nullptr);
        EXPECT_EQ(annex.getClassInside(interned("late")), nullptr) << "another one came";
        EXPECT_EQ(annex.getFunction(interned("never")), nullptr);
        EXPECT_EQ(closed.getFunction(interned("late")), nullptr);
        EXPECT_EQ(closed.getInnerNamespace(interned("late")), nullptr);
        EXPECT_EQ(closed.getClassInside(interned("Crate")), nullptr);
    }
    EXPECT_EQ(Room::s_asked,
              "function late, namespace late, class Crate, class late, function never, "
              "class late, function never, ");
}

TEST_F(Namespaces, GoWithEverythingInsideIfTheirDescriptionAllowsIt) {
    COSNamespace& annex = add(describe<Room>("annex"), *workshop());
    COSNamespace& pillar = add(describe<Room>("pillar", false), annex);
    const std::uint64_t before = COSNamespace::generation();
    annex.cleanUp(nullptr);
    pillar.cleanUp(COSGetPublicClient());
    EXPECT_EQ(Room::s_count, 2);
    EXPECT_EQ(COSNamespace::generation(), before);
    annex.cleanUp(COSGetPublicClient());
    EXPECT_EQ(Room::s_count, 0);
    EXPECT_NE(COSNamespace::generation(), before);
    EXPECT_EQ(find("workshop.annex"), nullptr);
}

TEST_F(Namespaces, MayGoWhileAFunctionOfTheirsRuns) {
    workshop()->addFunction(ribo::factory::makeMethod(
        "leave", {}, [farewell = std::u16string(u"gone, and still talking")] {
            leave();
            return farewell;
        }));
    EXPECT_EQ(call(*workshop()->getFunction(interned("leave")), {}), "gone, and still talking");
    EXPECT_EQ(workshop(), nullptr);
}

TEST_F(Namespaces, LeaveTheirClassesToTheInstancesThatLive) {
    const ArrayPointer lamp = made(Lamp());
    ArrayPointer crate = made(Crate(7));
    leave();
    EXPECT_EQ(COSNamespace::getClass(interned("workshop.Crate")), nullptr);
    EXPECT_EQ(outcome([] { return made(Crate()); }),
              "ribo:UnknownClass: There is no class \"workshop.Crate\" (any more): what had it was "
              "unloaded.");
    EXPECT_EQ(CrateClass::s_count, 1);
    EXPECT_EQ(invoke("add", {crate.get(), crate.get()}), "");
    crate.reset(kaDuplicateArray(crate.get()));
    EXPECT_EQ(invoke("weigh", {crate.get()}), "14");

    enter();
    EXPECT_EQ(construct({crate.get()}), "workshop.Crate (Weight: 14, Label: , Colour: Green)")
        << "into the new class";
    EXPECT_EQ(CrateClass::s_count, 2);
    crate.reset();
    EXPECT_EQ(CrateClass::s_count, 1);
    leave();
}

}  // namespace

}  // namespace host::test
