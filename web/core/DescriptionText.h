#pragma once

#include <QJsonObject>
#include <cstdint>
#include <string>

namespace DOVA {

class WebObjectService2;

/// The text of an object's description with everything below it and `more` members of its own:
/// what WebObjectService2::describe() answers, written from the objects' state without a second
/// tree, and however deep the tree is. An object that is not registered gives an empty one.
std::string descriptionText(const WebObjectService2& service, std::uint32_t id,
                            const QJsonObject& more = {});

}  // namespace DOVA
