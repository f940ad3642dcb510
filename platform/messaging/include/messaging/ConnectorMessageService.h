#pragma once

#include "messaging/MessageBus.h"

namespace tdom::messaging {

/// One connector on the process's message bus: the library and the host publish and hear texts
/// through it. It stays with the bus that MessageBus::current() gave when it was made.
///
/// Any thread. Callbacks run on the bus's delivery thread, with the rules of MessageBus; a callback
/// may destroy the service it belongs to.
class DOVA_MESSAGING_EXPORT ConnectorMessageService {
public:
    /// The name is for diagnostics; two services may have the same.
    explicit ConnectorMessageService(const std::string& name);
    ConnectorMessageService(const ConnectorMessageService&) = delete;
    ConnectorMessageService& operator=(const ConnectorMessageService&) = delete;
    /// Ends every subscription that is left.
    ~ConnectorMessageService();

    /// Hears what other connectors publish on exactly this channel from now on. Gives a handle for
    /// unsubscribe(), never 0.
    std::uint32_t subscribe(const std::string& channel,
                            std::function<void(const std::string& text)> callback);

    /// Ends a subscription; see MessageBus::unsubscribe(). An unknown handle does nothing.
    void unsubscribe(std::uint32_t handle);

    /// Publishes a text (UTF-8) to every other connector's subscriptions of the channel. Returns
    /// before they are called; the order of texts is kept.
    void publish(const std::string& channel, const std::string& text);
    /// The same, and takes the text over: it is not copied on its way.
    void publish(const std::string& channel, std::string&& text);

private:
    std::shared_ptr<MessageBus> m_bus;
    MessageBus::ConnectorId m_connector;
};

}  // namespace tdom::messaging
