#include "MessageService.h"

#include <QByteArray>

namespace DOVA {

using tdom::messaging::ConnectorMessageService;

const std::shared_ptr<ConnectorMessageService>& messageService() {
    static const auto service =
        std::make_shared<ConnectorMessageService>("dova_web_connector_service");
    return service;
}

std::string toWireText(const QJsonDocument& document) {
    const QByteArray text = document.toJson(QJsonDocument::Compact);
    return std::string(text.constData(), static_cast<std::size_t>(text.size()));
}

QJsonDocument fromWireText(const std::string& text) {
    return QJsonDocument::fromJson(
        QByteArray::fromRawData(text.data(), static_cast<int>(text.size())));
}

}  // namespace DOVA
