#include "PageListener.h"

#include <QByteArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <utility>

#include "ProtocolNames.h"

namespace DOVA::runtime {

namespace {

const QLatin1String s_clientReady(names::clientReady);
const QLatin1String s_clientDestroyed(names::clientDestroyed);

}  // namespace

PageListener::PageListener(std::function<void(bool isNew)> onPage,
                           std::function<void()> onWindowMessage)
    : m_onPage(std::move(onPage)),
      m_onWindowMessage(std::move(onWindowMessage)),
      m_messages("dova_runtime") {
    m_messages.subscribe(names::rootChannel, [this](const std::string& text) { hear(text); });
}

void PageListener::hear(const std::string& text) {
    const QJsonObject message = QJsonDocument::fromJson(QByteArray::fromStdString(text)).object();
    const QJsonValue ready = message.value(s_clientReady);
    if (ready.isString()) {
        const bool isNew = std::exchange(m_page, ready.toString().toStdString()) != m_page;
        if (isNew) {
            listenTo(ready.toString());
        }
        m_onPage(isNew);
    } else if (ready.isUndefined() &&
               message.value(s_clientDestroyed) == QString::fromStdString(m_page)) {
        m_page.clear();
    }
}

void PageListener::listenTo(const QString& page) {
    if (m_pageChannel != 0) {
        m_messages.unsubscribe(m_pageChannel);
    }
    const std::string channel =
        std::string(names::rootChannel) + "/" + page.toLatin1().toStdString();
    m_pageChannel =
        m_messages.subscribe(channel, [this](const std::string&) { m_onWindowMessage(); });
}

}  // namespace DOVA::runtime
