#pragma once

namespace tdom {

/// The name of the connector over which the model document is mirrored to the client.
inline constexpr const char* tdom_message_service = "tdom_message_service";

/// The channel on which pages ask for the document and hear of its changes.
inline constexpr const char* tdom_channel = "/tdom";

}  // namespace tdom
