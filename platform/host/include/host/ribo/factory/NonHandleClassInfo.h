#pragma once

#include <type_traits>

#include "host/ribo/COSClassInfo.h"

namespace ribo::factory {

/// A class whose instances are values: each owns a Stored on the heap, a copy has a copy of it.
/// Value is what the class shows of it; a Stored can be constructed from a Value.
template <class Value, class Stored>
class NonHandleClassInfo : public virtual COSClassInfo {
    static_assert(std::is_constructible_v<Stored, const Value&>);

public:
    bool isHandleClass() const override { return false; }

    void* allocateInstance() const override { return new Stored(); }
    void* copyInstance(const void* instance) const override {
        return new Stored(*static_cast<const Stored*>(instance));
    }
    void deallocateInstance(void* instance) const noexcept override {
        delete static_cast<Stored*>(instance);
    }

protected:
    NonHandleClassInfo() : COSClassInfo({}, {}) {}  // the most derived class names itself
};

}  // namespace ribo::factory
