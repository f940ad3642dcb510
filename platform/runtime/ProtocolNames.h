// Made from protocol/ by protocol/generate.mjs; do not edit.
#pragma once

/// What the runtime hears of pages and of what they ask for.
namespace DOVA::runtime::names {

inline constexpr const char* rootChannel = "/dova2/web";
inline constexpr const char* clientReady = "clientReady";
inline constexpr const char* clientDestroyed = "clientDestroyed";
inline constexpr const char* dialogDestroyed = "dialogDestroyed";

}  // namespace DOVA::runtime::names
