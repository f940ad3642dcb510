#include "ObjectConnection.h"

#include <utility>

#include "MessageService.h"
#include "core/WebObjectService2.h"

namespace DOVA {

namespace {

std::uint64_t nextNumber() {
    static std::uint64_t last = 0;
    return ++last;
}

}  // namespace

ObjectConnection::ObjectConnection(std::string channel)
    : m_number(nextNumber()), m_channel(std::move(channel)) {}

ObjectConnection::~ObjectConnection() {
    ObjectConnection::disconnect();
}

void ObjectConnection::send(const QJsonDocument& document) {
    sendText(toWireText(document));
}

void ObjectConnection::sendText(std::string text) {
    if (m_messages) {
        m_messages->publish(m_channel, std::move(text));
    }
}

void ObjectConnection::connect() {
    disconnect();
    m_messages = messageService();
    m_subscription =
        m_messages->subscribe(m_channel, [this](const std::string& text) { onMessage(text); });
}

void ObjectConnection::disconnect() {
    if (m_messages) {
        m_messages->unsubscribe(m_subscription);
        m_messages.reset();
    }
}

void ObjectConnection::onMessage(const std::string& text) {
    if (WebObjectService2* service = WebObjectService2::instance()) {
        service->dispatch(m_number, fromWireText(text));
    }
}

}  // namespace DOVA
