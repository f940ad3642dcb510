#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

#include "model/SequenceEdit.h"
#include "model/Uuid.h"

namespace pf::zero {

/// The value of a property; `std::monostate` stands for a property that is not set.
using Value = std::variant<std::monostate, bool, std::int32_t, std::u16string, SequenceEdit>;

/// One record of what changed in a model.
struct Change {
    enum class Kind {
        Created,   ///< the element came with the default values of its type
        Property,  ///< `value` is the property's new value, or the edit of its sequence
        Removed    ///< the element is gone; no further record names it
    };

    Kind kind;
    Uuid element;
    /// The property's name; for `Created` and `Removed` the element's type name. Static storage.
    std::string_view name;
    Value value;
    /// The value before; not set for a sequence, whose edit says how many items went.
    Value before = {};
};

}  // namespace pf::zero
