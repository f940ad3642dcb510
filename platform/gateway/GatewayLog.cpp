#include "GatewayLog.h"

#include <spdlog/sinks/base_sink.h>
#include <spdlog/spdlog.h>

#include <memory>
#include <mutex>

#include "log/StandardError.h"

namespace DOVA::gateway {

namespace {

class StandardErrorSink final : public spdlog::sinks::base_sink<std::mutex> {
    void sink_it_(const spdlog::details::log_msg& message) override {
        spdlog::memory_buf_t line;
        formatter_->format(message, line);
        log::writeLine({line.data(), line.size() - 1});  // without its line end
    }
    void flush_() override {}
};

/// Not registered with spdlog: the name belongs to the host program.
spdlog::logger& logger() {
    // Never destroyed: what still logs while the process ends must not depend on the order of it.
    static auto& s_logger = *new spdlog::logger("gateway", std::make_shared<StandardErrorSink>());
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
