#pragma once

#include "../seam/ScriptClass.h"
#include "HostTypes.h"
#include "Nesting.h"

namespace DOVA::web::mi {

/// What the classes of arrays and objects have in common: an instance's value has notes beside it,
/// in the same storage.
template <class T>
using JSONClassInfo = seam::ScriptClass<T, Noted<T>>;

/// An element of an instance for the host: known to have one level less.
template <class T>
ribo::factory::kaArrayProxy elementToHost(const QJsonValue& element, T& of) {
    ribo::factory::kaArrayProxy value = toHost(element);
    if (element.isArray()) {
        levelsAtMost(seam::heldBy<QJsonArray>(value)) = levelsAtMost(of) - 1;
    } else if (element.isObject()) {
        levelsAtMost(seam::heldBy<QJsonObject>(value)) = levelsAtMost(of) - 1;
    }
    return value;
}

}  // namespace DOVA::web::mi
