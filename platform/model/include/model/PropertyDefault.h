#pragma once

#include <string_view>

#include "model/Change.h"
#include "model/Export.h"
#include "model/PropertyStart.h"

/// The values with which the properties of a new element start, the same for every kind of element
/// that has a property of that name.
namespace tdom::PropertyDefault {

/// Whether the property starts with `value`: what model/PropertyStart.h says, else false, 0, the
/// empty text or the empty sequence. True for a value that is not set.
DOVA_MODEL_EXPORT bool is(std::string_view property, const pf::zero::Value& value) noexcept;

}  // namespace tdom::PropertyDefault
