#pragma once

#include <cstdint>
#include <string_view>

#include "model/Change.h"
#include "wiro/Export.h"

/// The values with which the properties of a new element start. A property of one name starts with
/// the same value in every kind of element.
namespace tdom::PropertyDefault {

inline constexpr bool visible = true;
inline constexpr std::int32_t currentindex = -1;

/// Whether `value` is what the property starts with: one of those above, else unset, false, 0, the
/// empty text or the empty sequence.
DOVA_PLATFORM_EXPORT bool is(std::string_view property, const pf::zero::Value& value) noexcept;

}  // namespace tdom::PropertyDefault
