#include "scripting/JSONObjectFunctions.h"

#include "../core/TextConversions.h"
#include "JSONText.h"
#include "Nesting.h"

namespace DOVA::web {

QJsonObject objectFromJSON(const std::u16string& text) {
    return parseText(text).object();
}

std::u16string objectToJSON(const QJsonObject& object, JSONFormat format) {
    return writeText(QJsonDocument(object), format);
}

std::u16string objectToJSONIndented(const QJsonObject& object) {
    return objectToJSON(object, JSONFormat::Indented);
}

std::vector<std::u16string> objectGetKeys(const QJsonObject& object) {
    std::vector<std::u16string> keys;
    keys.reserve(static_cast<std::size_t>(object.size()));
    for (auto member = object.constBegin(); member != object.constEnd(); ++member) {
        keys.push_back(toU16(member.key()));
    }
    return keys;
}

void objectInsertFromJSON(QJsonObject& object, const std::u16string& key,
                          const std::u16string& text) {
    const auto element = elementFromText(text);
    if (element && fits(key)) {
        object.insert(toView(key), *element);
    }
}

void objectInsertValue(QJsonObject& object, const std::u16string& key, const QJsonValue& value) {
    if (fits(key) && checkLevels(countLevels(value))) {
        object.insert(toView(key), value);
    }
}

void objectRemove(QJsonObject& object, const std::u16string& key) {
    object.remove(toView(key));
}

QJsonValue objectValue(const QJsonObject& object, const std::u16string& key) {
    return object.value(toView(key));
}

std::u16string objectValueToJSON(const QJsonObject& object, const std::u16string& key,
                                 JSONFormat format) {
    return writeText(documentOf(objectValue(object, key)), format);
}

std::u16string objectValueToJSONIndented(const QJsonObject& object, const std::u16string& key) {
    return objectValueToJSON(object, key, JSONFormat::Indented);
}

JSONType objectValueType(const QJsonObject& object, const std::u16string& key) {
    return typeOf(objectValue(object, key));
}

}  // namespace DOVA::web
