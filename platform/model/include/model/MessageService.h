#pragma once

#include "model/DocumentName.h"

namespace tdom {

/// The name of the connector over which the model document is mirrored to the client.
inline constexpr const char* tdom_message_service = "tdom_message_service";

}  // namespace tdom
