#include "MessageService.h"

#include <QByteArray>
#include <limits>

#include "ModuleEnd.h"
#include "RepeatedContainers.h"

namespace DOVA {

using tdom::messaging::ConnectorMessageService;

const std::shared_ptr<ConnectorMessageService>& messageService() {
    static const struct {
        std::shared_ptr<ConnectorMessageService> service =
            std::make_shared<ConnectorMessageService>("dova_web_connector_service");
        EndsModule end;
    } shared;
    return shared.service;
}

std::string toWireText(const QJsonDocument& document) {
    const QByteArray text = document.toJson(QJsonDocument::Compact);
    return std::string(text.constData(), static_cast<std::size_t>(text.size()));
}

namespace {

// The parser takes a byte order mark off the front of every string; one that is escaped stays.
QByteArray withEscapedMarks(QByteArray text) {
    return text.replace("\"\xEF\xBB\xBF", "\"\\ufeff");
}

}  // namespace

QJsonDocument fromWireText(const std::string& text) {
    constexpr std::size_t longest = std::numeric_limits<int>::max();
    if (text.size() > longest || RepeatedContainers::occurIn(text)) {
        return {};
    }
    const auto bytes = QByteArray::fromRawData(text.data(), static_cast<int>(text.size()));
    return QJsonDocument::fromJson(text.find('\xEF') == text.npos ? bytes
                                                                  : withEscapedMarks(bytes));
}

}  // namespace DOVA
