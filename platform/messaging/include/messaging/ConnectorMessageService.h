#pragma once

#include "messaging/MessageBus.h"

namespace tdom::messaging {

/// A named participant of the process's message bus: what the library and the host use to publish
/// and to hear texts. It takes MessageBus::current() when it is made and stays with it.
///
/// Safe to use from any thread. Callbacks run on the bus's delivery thread; a callback may destroy
/// the service it belongs to.
class DOVA_MESSAGING_EXPORT ConnectorMessageService {
public:
    /// Attaches to the process's bus; the name is for diagnostics.
    explicit ConnectorMessageService(const std::string& name);
    ConnectorMessageService(const ConnectorMessageService&) = delete;
    ConnectorMessageService& operator=(const ConnectorMessageService&) = delete;
    /// Ends every subscription that is left.
    ~ConnectorMessageService();

    /// Hears what other connectors publish on exactly this channel from now on. Returns a handle
    /// for unsubscribe(), never 0.
    std::uint32_t subscribe(const std::string& channel,
                            std::function<void(const std::string& text)> callback);

    /// Ends a subscription; see MessageBus::unsubscribe(). An unknown handle does nothing.
    void unsubscribe(std::uint32_t handle);

    /// Publishes a text (UTF-8) to every other connector's subscriptions of the channel. Returns
    /// at once; the order per channel is kept.
    void publish(const std::string& channel, const std::string& text);

private:
    std::shared_ptr<MessageBus> m_bus;
    MessageBus::ConnectorId m_connector;
};

}  // namespace tdom::messaging
