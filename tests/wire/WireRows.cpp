#include "WireRows.h"

#include <QDir>
#include <QJsonDocument>
#include <QJsonValue>
#include <algorithm>
#include <functional>

#include "support/JsonRows.h"

namespace DOVA::test {

namespace {

std::string compact(const QJsonDocument& document) {
    return document.toJson(QJsonDocument::Compact).toStdString();
}

std::string rawText(const QJsonValue& text) {
    const QJsonValue parts = text["parts"];
    if (text.isString() || (text.isObject() && !parts.isArray())) {
        return text.isString() ? text.toString().toStdString()
                               : compact(QJsonDocument(text.toObject()));
    }
    if (text.isArray()) {
        return compact(QJsonDocument(text.toArray()));
    }
    std::string joined;
    const QJsonArray all = parts.toArray();
    for (const QJsonValue part : all) {
        joined += QByteArray::fromHex(part["bytes"].toString().toLatin1()).toStdString();
        const QString repeated = part.isString() ? part.toString() : part["repeat"].toString();
        joined += repeated.repeated(part["times"].toInt(1)).toStdString();
    }
    return joined;
}

std::string written(std::uint32_t identifier, const std::string& form) {
    return form == "wrapped" ? std::to_string(identifier + (std::uint64_t{1} << 32))
           : form == "hex"   ? QString::number(identifier, 16).toStdString()
                             : std::to_string(identifier);
}

}  // namespace

std::string WireRow::name() const {
    return content["name"].toString().toStdString();
}

QJsonArray WireRow::steps() const {
    return content.contains("steps") ? content["steps"].toArray() : QJsonArray{content};
}

std::ostream& operator<<(std::ostream& stream, const WireRow& row) {
    return stream << row.file << ": " << row.name();
}

std::vector<WireRow> readRows(const std::vector<std::string>& folders,
                              bool (*isWanted)(const WireRow&)) {
    std::vector<WireRow> rows;
    for (const std::string& folder : folders) {
        const QDir files(QString::fromStdString(WIRE_ROWS_FOLDER "/" + folder));
        for (const QString& name : files.entryList({"*.json"}, QDir::Files, QDir::Name)) {
            const QJsonArray content = readJson(files.filePath(name)).array();
            for (const QJsonValue one : content) {
                rows.push_back({folder + "/" + name.toStdString(), one.toObject()});
            }
        }
    }
    rows.erase(std::remove_if(rows.begin(), rows.end(), std::not_fn(isWanted)), rows.end());
    return rows;
}

QJsonObject standardScene() {
    return readJson(QStringLiteral(WIRE_ROWS_FOLDER "/scene.json")).object();
}

std::string fillIn(const std::string& text, const IdentifierOf& identifierOf) {
    std::string filled;
    std::size_t from = 0;
    for (auto at = text.find("${"); at != text.npos; at = text.find("${", from)) {
        const std::size_t end = text.find('}', at);
        const std::string name = text.substr(at + 2, end - at - 2);
        const std::size_t colon = name.find(':');
        const std::string form = colon == name.npos ? "" : name.substr(colon + 1);
        filled += text.substr(from, at - from) + written(identifierOf(name.substr(0, colon)), form);
        from = end + 1;
    }
    return filled + text.substr(from);
}

std::string wireText(const QJsonValue& text, const IdentifierOf& identifierOf) {
    return fillIn(rawText(text), identifierOf);
}

}  // namespace DOVA::test
