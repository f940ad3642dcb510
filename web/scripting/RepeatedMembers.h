#pragma once

#include <QJsonDocument>

namespace DOVA::web {

/// Parses bytes as QJsonDocument::fromJson does, error and all, but of members that repeat a key
/// the last one stands, always, and nothing leaks (core/RepeatedContainers says what does). Texts
/// that are in no danger are looked through and parsed once; the others are parsed twice, changed
/// each time.
QJsonDocument parseLastMembers(const QByteArray& bytes, QJsonParseError& error);

}  // namespace DOVA::web
