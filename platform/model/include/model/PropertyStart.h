// Made from protocol/ by protocol/generate.mjs; do not edit.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>

#include "model/PropertyName.h"

/// What properties start with that do not start as false, 0 or empty.
namespace tdom::PropertyDefault {

inline constexpr bool visible = true;
inline constexpr std::int32_t currentindex = -1;

/// The flags among them; nothing for one that starts unset, so that both flags are a change.
inline constexpr std::pair<std::string_view, std::optional<bool>> flags[] = {
    {PropertyName::visible, visible},
    {PropertyName::enable, std::nullopt},
};
inline constexpr std::pair<std::string_view, std::int32_t> numbers[] = {
    {PropertyName::currentindex, currentindex},
};

}  // namespace tdom::PropertyDefault
