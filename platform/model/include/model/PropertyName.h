// Made from protocol/ by protocol/generate.mjs; do not edit.
#pragma once

#include <string_view>

/// The names that change records give the properties of the elements.
namespace tdom::PropertyName {

inline constexpr std::string_view visible = "visible";
inline constexpr std::string_view enable = "enable";
inline constexpr std::string_view tooltip = "tooltip";
inline constexpr std::string_view tag = "tag";
inline constexpr std::string_view label = "label";
inline constexpr std::string_view text = "text";
inline constexpr std::string_view entries = "entries";
inline constexpr std::string_view currentindex = "currentindex";
inline constexpr std::string_view editable = "editable";
inline constexpr std::string_view placeholder = "placeholder";
inline constexpr std::string_view checkable = "checkable";
inline constexpr std::string_view checked = "checked";
inline constexpr std::string_view icon = "icon";
inline constexpr std::string_view defaultbutton = "defaultbutton";

}  // namespace tdom::PropertyName
