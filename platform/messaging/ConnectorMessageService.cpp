#include "messaging/ConnectorMessageService.h"

#include <utility>

namespace tdom::messaging {

ConnectorMessageService::ConnectorMessageService(const std::string& name)
    : m_bus(MessageBus::current()), m_connector(m_bus->attach(name)) {}

ConnectorMessageService::~ConnectorMessageService() {
    m_bus->detach(m_connector);
}

std::uint32_t ConnectorMessageService::subscribe(
    const std::string& channel, std::function<void(const std::string& text)> callback) {
    return m_bus->subscribe(m_connector, channel,
                            [callback = std::move(callback)](
                                const std::string&, const std::string& text) { callback(text); });
}

void ConnectorMessageService::unsubscribe(std::uint32_t handle) {
    m_bus->unsubscribe(handle);
}

void ConnectorMessageService::publish(const std::string& channel, const std::string& text) {
    m_bus->publish(m_connector, channel, text);
}

void ConnectorMessageService::publish(const std::string& channel, std::string&& text) {
    m_bus->publish(m_connector, channel, std::move(text));
}

}  // namespace tdom::messaging
