#include "JsonSchema.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QStringList>
#include <QUrl>
#include <algorithm>
#include <optional>
#include <utility>

#include "../file/FileError.h"
#include "../file/TextFile.h"
#include "JsonError.h"
#include "JsonScanner.h"

namespace jsonpad {

namespace {

/// How many schemas may speak about one value; no sensible file comes near.
constexpr std::size_t s_mostSchemas = 64;

QJsonValue step(const QJsonValue& from, const QString& name) {
    if (!from.isArray()) {
        return from.toObject().value(name);
    }
    bool isIndex = false;
    const int index = name.toInt(&isIndex);
    return isIndex ? from.toArray().at(index) : QJsonValue(QJsonValue::Undefined);
}

}  // namespace

JsonSchema JsonSchema::load(const std::string& path, FileDoor& door) {
    const std::optional<std::string> text = TextFile(path, door).read();
    if (!text) {
        throw FileError("cannot open the schema '" + path + "': there is no such file");
    }
    try {
        JsonScanner::scan(*text);
    } catch (const JsonError& error) {
        throw FileError("cannot read the schema '" + path + "': " + error.what());
    }
    const auto document = QJsonDocument::fromJson(QByteArray::fromStdString(*text));
    if (!document.isObject()) {
        throw FileError("cannot read the schema '" + path + "': it is too large");
    }
    return JsonSchema(document.object());
}

std::vector<std::u16string> JsonSchema::choices(const std::vector<std::u16string>& path,
                                                bool isElement) const {
    Schemas schemas;
    add(schemas, m_root);
    for (const std::u16string& key : path) {
        schemas = ofMember(schemas, QString::fromStdU16String(key));
    }
    if (isElement) {
        schemas = ofElements(schemas);
    }
    std::vector<std::u16string> result;
    for (const QJsonObject& schema : schemas) {
        for (const QJsonValue value : schema.value("enum").toArray()) {
            if (value.isString()) {
                result.push_back(value.toString().toStdU16String());
            }
        }
    }
    return result;
}

/// Adds a schema and those that it refers to, one after the other, each once.
void JsonSchema::add(Schemas& schemas, QJsonObject schema) const {
    while (!schema.isEmpty() && schemas.size() < s_mostSchemas &&
           std::find(schemas.begin(), schemas.end(), schema) == schemas.end()) {
        schemas.push_back(schema);
        schema = at(schema.value("$ref").toString()).toObject();
    }
}

JsonSchema::Schemas JsonSchema::ofMember(const Schemas& schemas, const QString& key) const {
    Schemas result;
    for (const QJsonObject& schema : schemas) {
        add(result, schema.value("properties").toObject().value(key).toObject());
    }
    return result;
}

JsonSchema::Schemas JsonSchema::ofElements(const Schemas& schemas) const {
    Schemas result;
    for (const QJsonObject& schema : schemas) {
        add(result, schema.value("items").toObject());
    }
    return result;
}

QJsonValue JsonSchema::at(const QString& reference) const {
    if (reference != "#" && !reference.startsWith("#/")) {
        return QJsonValue::Undefined;
    }
    QJsonValue result = m_root;
    for (QString name : reference.split('/').mid(1)) {
        name = QUrl::fromPercentEncoding(name.toUtf8());
        result = step(result, name.replace("~1", "/").replace("~0", "~"));
    }
    return result;
}

}  // namespace jsonpad
