#pragma once

#include <QJsonValue>
#include <cstdint>
#include <string>
#include <string_view>

namespace DOVA {

/// The text that tells pages of one property of an object: an array with one object that has the
/// identifier, the type name (UTF-8) and the property. An undefined value leaves the property out.
std::string propertyMessage(std::uint32_t id, const std::string& type, std::u16string_view name,
                            const QJsonValue& value);
std::string propertyMessage(std::uint32_t id, const std::string& type, std::u16string_view name,
                            std::u16string_view value);

}  // namespace DOVA
