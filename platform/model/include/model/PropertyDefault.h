#pragma once

#include <string_view>

#include "model/Change.h"
#include "model/Export.h"
#include "model/PropertyStart.h"

/// The values with which the properties of a new element start. A property of one name starts with
/// the same value in every kind of element.
namespace tdom::PropertyDefault {

/// Whether `value` is what the property starts with: what model/PropertyStart.h says, else unset,
/// false, 0, the empty text or the empty sequence.
DOVA_MODEL_EXPORT bool is(std::string_view property, const pf::zero::Value& value) noexcept;

}  // namespace tdom::PropertyDefault
