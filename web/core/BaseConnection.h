#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "ClientConnection.h"
#include "messaging/ConnectorMessageService.h"

namespace DOVA {

/// The root channel, on which clients come and go. One for the process; there is one client at a
/// time.
class BaseConnection {
public:
    /// Made on first use, destroyed when the process ends.
    static BaseConnection& instance();

    BaseConnection(const BaseConnection&) = delete;
    BaseConnection& operator=(const BaseConnection&) = delete;
    virtual ~BaseConnection();

    /// Subscribes the root channel and asks running clients to announce themselves.
    void subscribe();
    /// Ends the subscription, if there is one, and with it the client connection.
    static void releaseInstance();
    /// The connected client, null if there is none.
    static ClientConnection* currentClient();

private:
    BaseConnection();

    void onMessage(const std::string& text);
    void onClientReady(const std::string& channel);
    void onClientDestroyed(const std::string& channel);
    bool isClient(const std::string& channel) const;

    std::unique_ptr<ClientConnection> m_client;
    std::shared_ptr<tdom::messaging::ConnectorMessageService> m_messages;
    std::uint32_t m_subscription = 0;
    static bool s_subscribed;
};

}  // namespace DOVA
