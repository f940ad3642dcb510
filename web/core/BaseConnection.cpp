#include "BaseConnection.h"

#include <QJsonObject>
#include <QString>

#include "LifeCycleNames.h"
#include "MessageService.h"

namespace DOVA {

namespace {

// Latin-1, because that is how clients have always named their channels.
std::string clientChannel(const QString& client) {
    return lifecycle::rootChannel + "/" + client.toLatin1().toStdString();
}

}  // namespace

bool BaseConnection::s_subscribed = false;

BaseConnection& BaseConnection::instance() {
    static BaseConnection root;
    return root;
}

BaseConnection::BaseConnection() : m_messages(messageService()) {}

BaseConnection::~BaseConnection() {
    if (s_subscribed) {
        m_messages->unsubscribe(m_subscription);
    }
    s_subscribed = false;
}

void BaseConnection::subscribe() {
    m_subscription = m_messages->subscribe(lifecycle::rootChannel,
                                           [this](const std::string& text) { onMessage(text); });
    s_subscribed = true;
    const QJsonObject ping{{lifecycle::ping, -1}};
    m_messages->publish(lifecycle::rootChannel, toWireText(QJsonDocument(ping)));
}

void BaseConnection::releaseInstance() {
    if (!s_subscribed) {
        return;
    }
    s_subscribed = false;
    BaseConnection& root = instance();
    root.m_messages->unsubscribe(root.m_subscription);
    root.m_client.reset();
}

ClientConnection* BaseConnection::currentClient() {
    // A process that was never online makes no root connection just to be asked.
    return s_subscribed ? instance().m_client.get() : nullptr;
}

void BaseConnection::onMessage(const std::string& text) {
    const QJsonObject message = fromWireText(text).object();
    const QJsonValue ready = message.value(lifecycle::clientReady);
    const QJsonValue destroyed = message.value(lifecycle::clientDestroyed);
    if (ready.isString()) {
        onClientReady(clientChannel(ready.toString()));
    } else if (ready.isUndefined() && destroyed.isString()) {
        onClientDestroyed(clientChannel(destroyed.toString()));
    }
}

bool BaseConnection::isClient(const std::string& channel) const {
    return m_client && m_client->channel() == channel;
}

void BaseConnection::onClientReady(const std::string& channel) {
    if (isClient(channel)) {
        return;
    }
    const ClientConnection* const old = m_client.get();
    if (old) {
        m_client->destroyAllDialogs();
    }
    // The handlers of the old client's dialogs may have shut the module down, or let a later client
    // in by delivering messages themselves.
    if (s_subscribed && m_client.get() == old) {
        m_client = std::make_unique<ClientConnection>(channel);
    }
}

void BaseConnection::onClientDestroyed(const std::string& channel) {
    if (!isClient(channel)) {
        return;
    }
    m_client->destroyAllDialogs();
    if (isClient(channel)) {
        m_client.reset();
    }
}

}  // namespace DOVA
