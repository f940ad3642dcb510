#pragma once

#include <QJsonObject>
#include <cstdint>
#include <string>

namespace DOVA {

class WebObjectService2;

/// The text of an object's description with everything below it and `more` members of its own,
/// however deep the tree is. Qt's writer and the ends of its objects would call themselves for each
/// level; they are faster where that does no harm.
std::string deepDescription(const WebObjectService2& service, std::uint32_t id,
                            const QJsonObject& more = {});

}  // namespace DOVA
