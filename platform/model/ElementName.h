// Made from protocol/ by protocol/generate.mjs; do not edit.
#pragma once

#include <string_view>

/// The types of elements, their bases included.
namespace tdom::ElementName {

inline constexpr std::string_view base = "Base";
inline constexpr std::string_view element = "Element";
inline constexpr std::string_view baseButton = "BaseButton";
inline constexpr std::string_view button = "Button";
inline constexpr std::string_view checkBox = "CheckBox";
inline constexpr std::string_view comboBox = "ComboBox";
inline constexpr std::string_view edit = "Edit";
inline constexpr std::string_view text = "Text";

}  // namespace tdom::ElementName
