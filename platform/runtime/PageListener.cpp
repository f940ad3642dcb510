#include "PageListener.h"

#include <QByteArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <utility>

namespace DOVA::runtime {

namespace {

constexpr const char* s_rootChannel = "/dova2/web";
const QLatin1String s_clientReady("clientReady");
const QLatin1String s_clientDestroyed("clientDestroyed");

}  // namespace

PageListener::PageListener(std::function<void()> onNewPage)
    : m_onNewPage(std::move(onNewPage)), m_messages("dova_runtime") {
    m_messages.subscribe(s_rootChannel, [this](const std::string& text) { hear(text); });
}

void PageListener::hear(const std::string& text) {
    const QJsonObject message = QJsonDocument::fromJson(QByteArray::fromStdString(text)).object();
    const QJsonValue ready = message.value(s_clientReady);
    if (ready.isString()) {
        const bool isNew = std::exchange(m_page, ready.toString().toStdString()) != m_page;
        if (isNew) {
            m_onNewPage();
        }
    } else if (ready.isUndefined() &&
               message.value(s_clientDestroyed) == QString::fromStdString(m_page)) {
        m_page.clear();
    }
}

}  // namespace DOVA::runtime
