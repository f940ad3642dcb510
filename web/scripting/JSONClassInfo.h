#pragma once

#include "HostTypes.h"
#include "Nesting.h"
#include "host/ribo/factory/CopyableDataTypeClassInfo.h"

namespace DOVA::web::mi {

/// What the classes of arrays and objects have in common: an instance's value has notes beside it,
/// in the same storage.
template <class T>
class JSONClassInfo : public ribo::factory::CopyableDataTypeClassInfo<T> {
public:
    void* allocateInstance() const override { return &(new Noted<T>)->value; }
    void* copyInstance(const void* instance) const override {
        return &(new Noted<T>{*static_cast<const T*>(instance)})->value;
    }
    void deallocateInstance(void* instance) const noexcept override {
        delete static_cast<Noted<T>*>(instance);
    }

    // An edit of a copy makes its elements anew: sixteen bytes each, and twice as many members.
    std::size_t weighInstance(const void* instance) const noexcept override {
        return sizeof(Noted<T>) +
               32 * static_cast<std::size_t>(static_cast<const Noted<T>*>(instance)->value.size());
    }

protected:
    // A value that was copied over another has as many levels as any.
    void onSelfCopied(T& self) const override {
        levelsAtMost(self) = s_mostLevels;
        textBytes(self) = {};
    }
};

/// An element of an instance for the host: known to have one level less.
template <class T>
ribo::factory::kaArrayProxy elementToHost(const QJsonValue& element, T& of) {
    ribo::factory::kaArrayProxy value = toHost(element);
    if (element.isArray()) {
        levelsAtMost(ribo::factory::TypeOf<QJsonArray>::fromHost(value.get())) =
            levelsAtMost(of) - 1;
    } else if (element.isObject()) {
        levelsAtMost(ribo::factory::TypeOf<QJsonObject>::fromHost(value.get())) =
            levelsAtMost(of) - 1;
    }
    return value;
}

}  // namespace DOVA::web::mi
