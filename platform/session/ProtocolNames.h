// Made from protocol/ by protocol/generate.mjs; do not edit.
#pragma once

#include <string_view>

/// The channels that pages see.
namespace DOVA::session::names {

inline constexpr const char* rootChannel = "/dova2/web";
inline constexpr const char* modelChannel = "/tdom";
inline constexpr const char* ownChannel = ".";

}  // namespace DOVA::session::names

/// Members and words of JSON texts, within their quotation marks.
namespace DOVA::session::json {

inline constexpr std::string_view ping = "\"ping\"";
inline constexpr std::string_view clientReady = "\"clientReady\"";
inline constexpr std::string_view clientDestroyed = "\"clientDestroyed\"";
inline constexpr std::string_view snapshot = "\"snapshot\"";
inline constexpr std::string_view properties = "\"properties\"";
inline constexpr std::string_view session = "\"session\"";
inline constexpr std::string_view received = "\"received\"";
inline constexpr std::string_view reason = "\"reason\"";
inline constexpr std::string_view fresh = "\"new\"";
inline constexpr std::string_view resumed = "\"resumed\"";
inline constexpr std::string_view lost = "\"lost\"";

}  // namespace DOVA::session::json
