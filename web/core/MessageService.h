#pragma once

#include <QJsonDocument>
#include <memory>
#include <string>

#include "messaging/ConnectorMessageService.h"

namespace DOVA {

/// The library's own connector, made on first use and destroyed when the process ends.
const std::shared_ptr<tdom::messaging::ConnectorMessageService>& messageService();

/// The document as it travels: compact UTF-8.
std::string toWireText(const QJsonDocument& document);
/// Reads what came; a null document if it is no JSON. An object that repeats a key, one of the
/// times with an array or object, counts as none.
QJsonDocument fromWireText(const std::string& text);

}  // namespace DOVA
