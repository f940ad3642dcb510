#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <utility>

#include "Living.h"
#include "host/parutil/Error_InvalidEnumValue.h"
#include "host/ribo/factory/CopyableDataTypeClassInfo.h"

namespace host::test {

enum class Colour { Red, Green };

/// A value that scripts have instances of.
struct Crate : Living<Crate> {
    explicit Crate(std::int32_t initialWeight = 0, std::u16string initialLabel = {})
        : weight(initialWeight), label(std::move(initialLabel)) {}

    bool operator==(const Crate& other) const {
        return weight == other.weight && label == other.label;
    }

    std::int32_t weight;
    std::u16string label;
};

/// Describes workshop.Crate.
class CrateClass : public ribo::factory::CopyableDataTypeClassInfo<Crate>,
                   private Living<CrateClass> {
public:
    using Living<CrateClass>::s_count;
    static inline int s_described = 0;

    CrateClass() : COSClassInfo("Crate", "workshop Crate") {}

protected:
    void describeOwnMembers() override;
};

}  // namespace host::test

template <>
struct ribo::factory::TypeOf<host::test::Crate> : ribo::factory::InstanceType<host::test::Crate> {
    DOVA_RIBO_TYPE_NAME("workshop.Crate")
};

template <>
struct ribo::factory::TypeOf<host::test::Colour> {
    DOVA_RIBO_TYPE_NAME("char vector")
    static host::test::Colour fromHost(const kaArray* value) {
        const std::u16string text = kaGetString(value);
        if (text == u"Red" || text == u"Green") {
            return text == u"Red" ? host::test::Colour::Red : host::test::Colour::Green;
        }
        throw parutil::Error_InvalidEnumValue("Red Green");
    }
    static host::ArrayPointer toHost(host::test::Colour colour) {
        return host::ArrayPointer(
            kaCreateString(colour == host::test::Colour::Red ? u"Red" : u"Green"));
    }
};

namespace host::test {

inline void CrateClass::describeOwnMembers() {
    ++s_described;
    constructor([](std::int32_t weight) { return Crate(weight); });
    constructor(
        [](std::int32_t weight, std::u16string label) { return Crate(weight, std::move(label)); });
    property("Weight", [](const Crate& self) { return self.weight; });
    property(
        "Label", [](const Crate& self) { return self.label; },
        [](Crate& self, std::u16string label) { self.label = std::move(label); });
    property("Colour",
             [](const Crate& self) { return self.weight < 100 ? Colour::Green : Colour::Red; });
    constant("Heaviest", [] { return Crate(2147483647, u"ton"); });
    method("add", [](Crate& self, std::int32_t weight) { self.weight += weight; });
    method("add", [](Crate& self, const Crate& other) { self.weight += other.weight; });
    method("isHeavierThan", [](const Crate& self, double limit) { return self.weight > limit; });
    method("paint", [](Crate& self, Colour colour) { self.weight = static_cast<int>(colour); });
    method("self", [](const Crate& self) { return self; });
    staticMethod("weigh", [](const Crate& crate) { return crate.weight; });
    staticMethod("drop", []() -> bool { throw std::out_of_range("dropped"); });
}

}  // namespace host::test
