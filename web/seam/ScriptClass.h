#pragma once

#include <cstddef>

#include "host/ribo/factory/CopyableDataTypeClassInfo.h"

namespace DOVA::seam {

/// A script class whose instances hold a `T`, and take a `Stored` in memory: it begins with the
/// `T`, tells its size by `weight()`, and is told by `valueReplaced()` that a script has copied
/// another value over it.
template <class T, class Stored>
class ScriptClass : public ribo::factory::CopyableDataTypeClassInfo<T> {
public:
    void* allocateInstance() const override { return new Stored(); }
    void* copyInstance(const void* instance) const override {
        return new Stored{*static_cast<const T*>(instance)};
    }
    void deallocateInstance(void* instance) const noexcept override {
        delete static_cast<Stored*>(instance);
    }
    std::size_t weighInstance(const void* instance) const noexcept override {
        return static_cast<const Stored*>(instance)->weight();
    }

protected:
    void onSelfCopied(T& self) const override { reinterpret_cast<Stored&>(self).valueReplaced(); }
};

}  // namespace DOVA::seam
