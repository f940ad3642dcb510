#include <stdexcept>

#include "WorkshopTest.h"

namespace host::test {

namespace {

class Classes : public WorkshopTest {
protected:
    static const ribo::factory::RiboProperty& property(const char* name) {
        return *members("workshop.Crate").findProperty(interned(name));
    }

    /// The value after it was set, or why it was not.
    std::string set(const char* name, const ArrayPointer& value) const {
        return outcome([&] {
            property(name).set(m_crate.get(), value.get());
            return property(name).get(m_crate.get());
        });
    }

    const ArrayPointer m_crate = made(Crate(100, u"nails"));
    const ArrayPointer m_seven = made(std::int32_t(7));
    const ArrayPointer m_tools = made(std::u16string(u"tools"));
};

TEST_F(Classes, MembersActOnTheInstanceItself) {
    const ArrayPointer other = made(Crate(7, u"tools"));
    const ArrayPointer red = made(std::u16string(u"Red"));
    const ArrayPointer pink = made(std::u16string(u"Pink"));
    const struct {
        const char* name;
        std::string given;
        const char* expected;
    } rows[] = {
        {"constructor", construct({}), "workshop.Crate (Weight: 0, Label: , Colour: Green)"},
        {"copying", construct({other.get()}),
         "workshop.Crate (Weight: 7, Label: tools, Colour: Green)"},
        {"own", construct({m_seven.get(), m_tools.get()}),
         "workshop.Crate (Weight: 7, Label: tools, Colour: Green)"},
        {"changing", invoke("add", {m_crate.get(), m_seven.get()}), ""},
        {"withItself", invoke("add", {m_crate.get(), m_crate.get()}), ""},
        {"static", invoke("weigh", {m_crate.get()}), "214"},
        {"givesACopy", invoke("self", {m_crate.get()}),
         "workshop.Crate (Weight: 214, Label: nails, Colour: Red)"},
        {"enumeration", invoke("paint", {m_crate.get(), red.get()}), ""},
        {"unknownName", invoke("paint", {m_crate.get(), pink.get()}),
         "parutil:InvalidEnumValue: Invalid enumeration value. Valid names: Red Green"},
        {"afterwards", ribo::display(m_crate.get()),
         "workshop.Crate (Weight: 0, Label: nails, Colour: Green)"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.given, row.expected) << row.name;
    }
    const auto& drop = *members("workshop.Crate").findMethod(interned("drop"));
    EXPECT_THROW(call(drop, {}), std::out_of_range);
    EXPECT_EQ(members("workshop.Crate").findMethod(interned("lift")), nullptr);
    EXPECT_EQ(members("workshop.Crate").findProperty(interned("Lift")), nullptr);
}

TEST_F(Classes, PropertiesTakeWhatTheirTypeTakesIfTheyCanBeWritten) {
    const struct {
        const char* property;
        ArrayPointer value;
        const char* outcome;
    } rows[] = {
        {"Label", made(std::u16string(u"screws")), "screws"},
        {"Label", made(1.0),
         "ribo:WrongPropertyType: The property \"Label\" takes a value of type RiboFactoryString "
         "scalar."},
        {"Label", nullptr,
         "ribo:WrongPropertyType: The property \"Label\" takes a value of type RiboFactoryString "
         "scalar."},
        {"Weight", made(std::int32_t(1)),
         "ribo:ReadOnlyProperty: The property \"Weight\" can only be read."},
        {"Heaviest", made(Crate()),
         "ribo:ReadOnlyProperty: The property \"Heaviest\" can only be read."},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(set(row.property, row.value), row.outcome);
    }
    EXPECT_EQ(ribo::display(m_crate.get()),
              "workshop.Crate (Weight: 100, Label: screws, Colour: Red)");
    EXPECT_EQ(ribo::display(property("Heaviest").get(nullptr).get()),
              "workshop.Crate (Weight: 2147483647, Label: ton, Colour: Red)");
}

TEST_F(Classes, TheHiddenPropertyCopiesAWholeValue) {
    const ArrayPointer target = made(Crate());
    const auto& self = property("selfCopyingProperty");
    EXPECT_TRUE(self.getAttributes().isHidden);
    self.set(target.get(), self.get(m_crate.get()).get());
    for (const char* equality : {"isequal", "isequaln", "eq"}) {
        EXPECT_EQ(invoke(equality, {target.get(), m_crate.get()}), "true");
    }
    invoke("add", {target.get(), m_seven.get()});
    for (const char* equality : {"isequal", "isequaln", "eq"}) {
        EXPECT_EQ(invoke(equality, {target.get(), m_crate.get()}), "false");
    }
}

TEST_F(Classes, ADuplicateIsAValueOfItsOwnOrTheSameHandle) {
    const ArrayPointer lamp = made(Lamp());
    const ArrayPointer sameLamp(kaDuplicateArray(lamp.get()));
    const ArrayPointer copy(kaDuplicateArray(m_crate.get()));
    const ArrayPointer on = made(true);
    invoke("turn", {sameLamp.get(), on.get()});
    invoke("add", {copy.get(), m_seven.get()});
    EXPECT_EQ(ribo::display(lamp.get()), "workshop.Lamp (IsOn: true, Spare: workshop.Lamp)");
    EXPECT_EQ(ribo::display(m_crate.get()),
              "workshop.Crate (Weight: 100, Label: nails, Colour: Red)");
    EXPECT_EQ(Lamp::s_count, 1);
    EXPECT_EQ(Crate::s_count, 2);
}

}  // namespace

}  // namespace host::test
