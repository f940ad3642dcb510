// Made from protocol/ by protocol/generate.mjs; do not edit.
#pragma once

#include <string_view>

/// Where pages come in.
namespace DOVA::gateway::names {

inline constexpr const char* subProtocol = "dova.gateway.1";
inline constexpr const char* tokenProtocol = "token.";
inline constexpr const char* iconCookie = "dova-icon-";
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
