#pragma once

#include <QJsonDocument>

namespace DOVA::web {

/// Parses bytes as QJsonDocument::fromJson does, error and all, but of members that repeat a key
/// the last one stands in every object that holds a container, and nothing leaks
/// (core/RepeatedContainers says what does). Texts without such members are looked through and
/// parsed once; the others are parsed twice, changed each time.
QJsonDocument parseLastMembers(const QByteArray& bytes, QJsonParseError& error);

}  // namespace DOVA::web
