#pragma once

#include <QJsonDocument>
#include <cstdint>
#include <memory>
#include <string>
#include <unordered_set>

#include "messaging/ConnectorMessageService.h"

namespace DOVA {

/// The channel of the connected client: dialogs are announced on it, and the client says on it when
/// the user closed one.
class ClientConnection {
public:
    /// Subscribes the channel at once.
    explicit ClientConnection(std::string channel);
    virtual ~ClientConnection();
    ClientConnection(const ClientConnection&) = delete;
    ClientConnection& operator=(const ClientConnection&) = delete;

    /// Announces a dialog: publishes its description and remembers its identifier.
    virtual void send(const QJsonDocument& document, std::uint32_t dialog);
    void sendText(std::string text, std::uint32_t dialog);
    /// Asks every announced dialog to go away and forgets them all. Handlers may do anything, so
    /// nothing of this object is used after the first of them has run; one that throws is reported
    /// on the host's console.
    virtual void destroyAllDialogs();

    /// The dialog is gone, nothing more is to be asked of it.
    void forgetDialog(std::uint32_t dialog) { m_dialogs.erase(dialog); }
    /// Whether the dialog was announced here and has not been asked to go since.
    bool hasDialog(std::uint32_t dialog) const { return m_dialogs.count(dialog) > 0; }
    const std::string& channel() const { return m_channel; }

private:
    void onMessage(const std::string& text);

    const std::string m_channel;
    std::unordered_set<std::uint32_t> m_dialogs;
    std::shared_ptr<tdom::messaging::ConnectorMessageService> m_messages;
    std::uint32_t m_subscription;
};

}  // namespace DOVA
