#pragma once

#include "Living.h"
#include "host/ribo/factory/RiboFactoryClassInfo.h"
#include "host/ribo/factory/TypeOf.h"

namespace host::test {

/// A thing that scripts have handles of.
struct Lamp : Living<Lamp> {
    bool isOn = false;
};

/// Describes workshop.Lamp.
class LampClass : public ribo::factory::RiboFactoryClassInfo {
public:
    LampClass() : COSClassInfo("Lamp", "workshop Lamp") {}

    void* allocateInstance() const override { return new Lamp(); }
    void* copyInstance(const void*) const override { return nullptr; }  // handles share one
    void deallocateInstance(void* instance) const noexcept override {
        delete static_cast<Lamp*>(instance);
    }

protected:
    void describe() override;
};

}  // namespace host::test

template <>
struct ribo::factory::TypeOf<host::test::Lamp> : ribo::factory::InstanceType<host::test::Lamp> {
    DOVA_RIBO_TYPE_NAME("workshop.Lamp")
};

namespace host::test {

inline void LampClass::describe() {
    method("turn", [](Lamp& self, bool isOn) { self.isOn = isOn; });
    property("IsOn", [](const Lamp& self) { return self.isOn; });
    property("Spare", [](const Lamp&) { return Lamp(); });  // which has a spare one itself
}

}  // namespace host::test
