#include "BaseConnection.h"

#include <QJsonObject>
#include <QString>
#include <algorithm>
#include <utility>

#include "LifeCycleNames.h"
#include "MessageService.h"
#include "core/WebObjectService2.h"

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
    root.startChange({});
    root.m_waiting.clear();
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

// A message may be handled while an earlier one is: handlers of dialogs deliver messages
// themselves. The later message counts then, and the earlier one has nothing left to do.
std::uint64_t BaseConnection::startChange(const std::string& arriving) {
    m_arriving = arriving;
    return ++m_change;
}

void BaseConnection::onClientReady(const std::string& channel) {
    if (m_arriving == channel || (m_client && m_client->channel() == channel)) {
        return;
    }
    const std::uint64_t change = startChange(channel);
    const std::unique_ptr<ClientConnection> leaving = std::move(m_client);
    if (leaving) {
        leaving->destroyAllDialogs();
    }
    if (change == m_change) {
        m_client = std::make_unique<ClientConnection>(channel);
        m_arriving.clear();
        announceWaiting();
    }
}

void BaseConnection::onClientDestroyed(const std::string& channel) {
    if (m_arriving == channel) {
        startChange({});
        m_waiting.clear();
    } else if (m_client && m_client->channel() == channel) {
        startChange({});
        std::exchange(m_client, nullptr)->destroyAllDialogs();
    }
}

void BaseConnection::announceToNextClient(std::uint32_t window, Announce announce) {
    if (!s_subscribed || instance().m_arriving.empty()) {
        return;
    }
    auto& waiting = instance().m_waiting;
    const auto isIt = [=](const Waiting& each) { return each.window == window; };
    if (std::none_of(waiting.begin(), waiting.end(), isIt)) {
        waiting.push_back({window, announce});
    }
}

void BaseConnection::announceWaiting() {
    const std::vector<Waiting> waiting = std::exchange(m_waiting, {});
    for (const auto& [window, announce] : waiting) {
        WebObjectService2* service = WebObjectService2::instance();
        if (WebObject2* object = service ? service->getObject(window) : nullptr) {
            announce(*object);
        }
    }
}

}  // namespace DOVA
