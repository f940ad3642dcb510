#pragma once

#include <QJsonDocument>
#include <cstdint>
#include <memory>
#include <string>

#include "messaging/ConnectorMessageService.h"

namespace DOVA {

/// The channel of one shown window, both ways. Owned by the object service; its end unsubscribes
/// the channel.
class ObjectConnection {
public:
    /// Takes the next connection number of the process, the first is 1.
    explicit ObjectConnection(std::string channel);
    virtual ~ObjectConnection();
    ObjectConnection(const ObjectConnection&) = delete;
    ObjectConnection& operator=(const ObjectConnection&) = delete;

    /// Publishes the document compactly on the channel; nothing before connect().
    virtual void send(const QJsonDocument& document);
    /// Subscribes the channel. REQUIRES: the connection has its final address.
    virtual void connect();
    virtual void disconnect();
    /// A text from the client. Its handlers may destroy this connection.
    virtual void onMessage(const std::string& text);

    void sendText(std::string text);

    std::uint64_t number() const { return m_number; }
    const std::string& channel() const { return m_channel; }
    /// True once the client has said that it shows the window.
    bool isReady() const { return m_ready; }
    /// The window is described once more: what the client said of the last time counts no longer.
    void clearReady() { m_ready = false; }

protected:
    void setReady() { m_ready = true; }

private:
    const std::uint64_t m_number;
    const std::string m_channel;
    bool m_ready = false;
    std::shared_ptr<tdom::messaging::ConnectorMessageService> m_messages;
    std::uint32_t m_subscription = 0;
};

}  // namespace DOVA
