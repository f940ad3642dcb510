#include "GatewayLog.h"

#include <spdlog/sinks/stdout_sinks.h>
#include <spdlog/spdlog.h>

#include <memory>

namespace DOVA::gateway {

namespace {

/// Not registered with spdlog: the name belongs to the host program.
spdlog::logger& logger() {
    static spdlog::logger s_logger("gateway", std::make_shared<spdlog::sinks::stderr_sink_mt>());
    return s_logger;
}

}  // namespace

void logFault(const std::string& clientId, const CloseReason& reason) {
    logger().warn("page {}: {} ({})", clientId, reason.text, reason.code);
}

void logRefusal(unsigned status, const std::string& reason, const std::string& asked) {
    logger().warn("refused a page with {}: {} ({})", status, reason, asked);
}

void logAcceptError(const std::string& message) {
    logger().warn("cannot accept a connection: {}", message);
}

}  // namespace DOVA::gateway
