#pragma once

#include "gateway/GatewayOptions.h"

namespace DOVA::gateway {

/// Throws std::system_error with a text for the user when what a program asks of a gateway is not
/// acceptable.
void checkOptions(const GatewayOptions& options);

}  // namespace DOVA::gateway
