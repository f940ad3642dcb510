// Made from protocol/ by protocol/generate.mjs; do not edit.
#pragma once

#include <string_view>

/// Where pages come in, and the channels that they see.
namespace DOVA::gateway::names {

inline constexpr const char* rootChannel = "/dova2/web";
inline constexpr const char* modelChannel = "/tdom";
inline constexpr const char* ownChannel = ".";
inline constexpr const char* subProtocol = "dova.gateway.1";
inline constexpr const char* socketPath = "/socket";
inline constexpr const char* iconPath = "/icon/";

}  // namespace DOVA::gateway::names

/// The parameters of a page's requests.
namespace DOVA::gateway::query {

inline constexpr std::string_view token = "token";
inline constexpr std::string_view client = "client";
inline constexpr std::string_view received = "received";
inline constexpr std::string_view attempt = "attempt";
inline constexpr std::string_view ready = "ready";
inline constexpr std::string_view origin = "origin";

}  // namespace DOVA::gateway::query

/// Members and words of JSON texts, within their quotation marks.
namespace DOVA::gateway::json {

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

}  // namespace DOVA::gateway::json
