#include "gateway/Gateway.h"

#include <utility>

#include "GatewayCore.h"
#include "LocalProgram.h"

namespace DOVA::gateway {

Gateway::Gateway(boost::asio::io_context& loop, GatewayOptions options)
    : m_core(std::make_shared<GatewayCore>(
          loop, std::move(options), [&loop](const GatewayOptions& checked) {
              constexpr link::LocalProgram::Window oneFrame = 1;
              return std::make_shared<link::LocalProgram>(loop, checked.sessions, oneFrame);
          })) {}

Gateway::Gateway(boost::asio::io_context& loop, GatewayOptions options, Entrance& entrance)
    : m_core(std::make_shared<GatewayCore>(loop, std::move(options), nullptr, &entrance)) {}

Gateway::~Gateway() {
    m_core->abandon();
}

void Gateway::start() {
    m_core->start();
}

std::uint16_t Gateway::port() const {
    return m_core->port();
}

const std::string& Gateway::token() const {
    return m_core->options().token;
}

std::string Gateway::address() const {
    return m_core->address();
}

std::map<std::string, std::uint64_t> Gateway::refusals() const {
    return m_core->refusals().counts();
}

void Gateway::stop(std::function<void()> whenStopped) {
    m_core->stop(std::move(whenStopped));
}

}  // namespace DOVA::gateway
