#include "WindowConnection.h"

#include <QJsonObject>
#include <cstring>

#include "LifeCycleNames.h"
#include "MessageService.h"
#include "ReceivedMessage.h"
#include "TextConversions.h"
#include "core/WebObjectService2.h"

namespace DOVA {

namespace {

// Nearly every message is an event. A look at the bytes tells it from the one that says that the
// window is ready, and costs less than a look into the parsed object: no event has the key's
// capital, and nothing is hidden where nothing is escaped or behind a NUL.
bool mayTellReady(const std::string& text) {
    return std::strcspn(text.c_str(), "R\\") < text.size();
}

}  // namespace

WindowConnection::WindowConnection(std::uint32_t window, const std::string& clientChannel)
    : ObjectConnection(channelOf(window, clientChannel)) {}

std::string WindowConnection::channelOf(std::uint32_t window, const std::string& clientChannel) {
    return clientChannel + "/" + std::to_string(window);
}

void WindowConnection::onMessage(const std::string& text) {
    WebObjectService2* service = WebObjectService2::instance();
    if (!service) {
        return;
    }
    ReceivedMessage plain;
    if (plain.readPlain(text) && !plain.has(lifecycle::dialogReady) &&
        service->dispatch(number(), plain)) {
        return;
    }
    const QJsonDocument document = fromWireText(text);
    if (!mayTellReady(text)) {
        service->dispatch(number(), document);
        return;
    }
    const QJsonObject message = document.object();
    const auto ready = message.constFind(lifecycle::dialogReady);
    if (ready == message.constEnd()) {
        service->dispatch(number(), document);
    } else if (service->serves(number(), parseIdentifier(ready.value()))) {
        setReady();
    }
}

}  // namespace DOVA
