#pragma once

#include "gateway/GatewayOptions.h"

namespace DOVA::gateway {

/// What a program may ask of a gateway.
class OptionRules {
public:
    /// Throws std::system_error with a text for the user when an option is not acceptable.
    static void check(const GatewayOptions& options);

private:
    static void checkAddress(const GatewayOptions& options);
    static void checkNames(const GatewayOptions& options);
    static void checkFolders(const GatewayOptions& options);
    static void checkTheme(const GatewayOptions& options);
    static void checkLimits(const GatewayOptions& options);
};

}  // namespace DOVA::gateway
