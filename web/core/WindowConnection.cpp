#include "WindowConnection.h"

#include <QJsonObject>

#include "LifeCycleNames.h"
#include "MessageService.h"
#include "TextConversions.h"
#include "core/WebObjectService2.h"

namespace DOVA {

WindowConnection::WindowConnection(std::uint32_t window, const std::string& clientChannel)
    : ObjectConnection(clientChannel + "/" + std::to_string(window)) {}

void WindowConnection::onMessage(const std::string& text) {
    WebObjectService2* service = WebObjectService2::instance();
    if (!service) {
        return;
    }
    const QJsonDocument document = fromWireText(text);
    const QJsonObject message = document.object();
    const auto ready = message.constFind(lifecycle::dialogReady);
    if (ready == message.constEnd()) {
        service->dispatch(number(), document);
    } else if (service->serves(number(), parseIdentifier(ready.value()))) {
        setReady();
    }
}

}  // namespace DOVA
