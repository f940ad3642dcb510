// Made from protocol/ by protocol/generate.mjs; do not edit.
#pragma once

#include <string_view>

/// The channel on which pages ask for the document and hear of its changes.
namespace tdom {

inline constexpr const char* tdom_channel = "/tdom";

}  // namespace tdom

/// The members of the messages on that channel, and the first one of an element.
namespace tdom::DocumentName {

inline constexpr std::string_view version = "version";
inline constexpr std::string_view snapshot = "snapshot";
inline constexpr std::string_view properties = "properties";
inline constexpr std::string_view patch = "patch";
inline constexpr std::string_view type = "type";

}  // namespace tdom::DocumentName
