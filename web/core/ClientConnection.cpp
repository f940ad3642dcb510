#include "ClientConnection.h"

#include <QJsonObject>
#include <utility>

#include "LifeCycleNames.h"
#include "MessageService.h"
#include "TextConversions.h"
#include "core/HandlerErrors.h"
#include "core/WebObject2.h"
#include "core/WebObjectService2.h"

namespace DOVA {

namespace {

void requestDestruction(std::uint32_t dialog) {
    WebObjectService2* service = WebObjectService2::instance();
    WebObject2* object = service ? service->getObject(dialog) : nullptr;
    if (object) {
        callHandlers([=] { object->onDestroyRequested(); });
    }
}

}  // namespace

ClientConnection::ClientConnection(std::string channel)
    : m_channel(std::move(channel)),
      m_messages(messageService()),
      m_subscription(
          m_messages->subscribe(m_channel, [this](const std::string& text) { onMessage(text); })) {}

ClientConnection::~ClientConnection() {
    m_messages->unsubscribe(m_subscription);
}

void ClientConnection::send(const QJsonDocument& document, std::uint32_t dialog) {
    sendText(toWireText(document), dialog);
}

void ClientConnection::sendText(std::string text, std::uint32_t dialog) {
    m_dialogs.insert(dialog);
    m_messages->publish(m_channel, std::move(text));
}

void ClientConnection::destroyAllDialogs() {
    const auto dialogs = std::exchange(m_dialogs, {});
    for (const std::uint32_t dialog : dialogs) {
        requestDestruction(dialog);
    }
}

void ClientConnection::onMessage(const std::string& text) {
    const QJsonObject message = fromWireText(text).object();
    const auto destroyed = message.constFind(lifecycle::dialogDestroyed);
    if (destroyed == message.constEnd()) {
        return;
    }
    const std::uint32_t dialog = parseIdentifier(destroyed.value());
    // Forgotten before it is asked: the answer may end this connection. A dialog that decides to
    // stay is not heard of again.
    if (m_dialogs.erase(dialog) > 0) {
        requestDestruction(dialog);
    }
}

}  // namespace DOVA
