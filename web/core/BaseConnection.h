#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "ClientConnection.h"
#include "messaging/ConnectorMessageService.h"

namespace DOVA {

class WebObject2;

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
    /// The connected client, null if there is none. One whose dialogs are being asked to go is not
    /// connected any more: what is announced to it would be seen by nobody.
    static ClientConnection* currentClient();
    /// Announces a window, if the object is one, to the client that is there.
    using Announce = void (*)(WebObject2& object);
    /// While the dialogs of a client are asked to go because another one is about to come, has
    /// `announce` called with the object of this identifier once that one is there, if it still
    /// lives; nothing at other times.
    static void announceToNextClient(std::uint32_t window, Announce announce);

private:
    struct Waiting {
        std::uint32_t window;
        Announce announce;
    };

    BaseConnection();

    void onMessage(const std::string& text);
    void onClientReady(const std::string& channel);
    void onClientDestroyed(const std::string& channel);
    std::uint64_t startChange(const std::string& arriving);
    void announceWaiting();

    std::unique_ptr<ClientConnection> m_client;
    std::uint64_t m_change = 0;      // of the client; a handler may bring about a later one
    std::string m_arriving;          // channel of the client that comes next, while one goes
    std::vector<Waiting> m_waiting;  // windows that were shown meanwhile
    std::shared_ptr<tdom::messaging::ConnectorMessageService> m_messages;
    std::uint32_t m_subscription = 0;
    static bool s_subscribed;
};

}  // namespace DOVA
