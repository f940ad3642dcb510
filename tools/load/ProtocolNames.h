// Made from protocol/ by protocol/generate.mjs; do not edit.
#pragma once

#include <cstdint>

/// Where a page comes in, and its channels.
namespace DOVA::load::names {

inline constexpr const char* subProtocol = "dova.gateway.1";
inline constexpr const char* tokenProtocol = "token.";
inline constexpr const char* socketPath = "/socket";
inline constexpr const char* rootChannel = "/dova2/web";
inline constexpr const char* ownChannel = ".";

}  // namespace DOVA::load::names

/// The parameters of a page's requests.
namespace DOVA::load::query {

inline constexpr const char* token = "token";
inline constexpr const char* client = "client";
inline constexpr const char* received = "received";
inline constexpr const char* attempt = "attempt";
inline constexpr const char* ready = "ready";
inline constexpr const char* origin = "origin";

}  // namespace DOVA::load::query

/// The members of the messages that a page reads and writes.
namespace DOVA::load::keys {

inline constexpr const char* id = "id";
inline constexpr const char* type = "type";
inline constexpr const char* title = "title";
inline constexpr const char* contents = "contents";
inline constexpr const char* text = "text";
inline constexpr const char* event = "event";
inline constexpr const char* value = "value";
inline constexpr const char* geometry = "geometry";
inline constexpr const char* frameGeometry = "frameGeometry";
inline constexpr const char* dialogReady = "dialogReady";
inline constexpr const char* clientReady = "clientReady";
inline constexpr const char* clientDestroyed = "clientDestroyed";
inline constexpr const char* session = "session";
inline constexpr const char* received = "received";

}  // namespace DOVA::load::keys

/// What stands in these members.
namespace DOVA::load::words {

inline constexpr const char* fresh = "new";
inline constexpr const char* resumed = "resumed";
inline constexpr const char* lost = "lost";
inline constexpr const char* dialog = "Dialog";
inline constexpr const char* edit = "Edit";
inline constexpr const char* text = "Text";
inline constexpr const char* onEdit = "onEdit";

}  // namespace DOVA::load::words

/// Close codes that a page tells apart.
namespace DOVA::load::close_code {

inline constexpr std::uint16_t refused = 1008;
inline constexpr std::uint16_t duplicated = 4001;
inline constexpr std::uint16_t takenOver = 4002;
inline constexpr std::uint16_t sessionOver[] = {1002, 1003, 1007, 1009, 4000, 4003, 4004};

}  // namespace DOVA::load::close_code
