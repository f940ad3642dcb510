#include "WireRows.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonValue>
#include <cstdlib>
#include <iostream>

namespace DOVA::test {

namespace {

QJsonDocument readDocument(const QString& path) {
    QFile file(path);
    const bool opened = file.open(QIODevice::ReadOnly);
    const QJsonDocument document = QJsonDocument::fromJson(opened ? file.readAll() : QByteArray());
    if (document.isNull()) {
        std::cerr << "cannot read rows from " << path.toStdString() << "\n";
        std::exit(2);
    }
    return document;
}

std::string joined(const QJsonArray& parts);

std::string rawText(const QJsonValue& text) {
    if (text.isString()) {
        return text.toString().toStdString();
    }
    if (text.isArray()) {
        return QJsonDocument(text.toArray()).toJson(QJsonDocument::Compact).toStdString();
    }
    const QJsonObject object = text.toObject();
    return object.contains("parts")
               ? joined(object["parts"].toArray())
               : QJsonDocument(object).toJson(QJsonDocument::Compact).toStdString();
}

std::string joined(const QJsonArray& parts) {
    std::string text;
    for (const QJsonValue part : parts) {
        if (part.isString()) {
            text += part.toString().toStdString();
        } else if (part["bytes"].isString()) {
            text += QByteArray::fromHex(part["bytes"].toString().toLatin1()).toStdString();
        } else {
            for (int times = part["times"].toInt(); times > 0; --times) {
                text += part["repeat"].toString().toStdString();
            }
        }
    }
    return text;
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

std::vector<WireRow> readRows(const std::string& folder) {
    const QDir files(QString::fromStdString(WIRE_ROWS_FOLDER "/" + folder));
    std::vector<WireRow> rows;
    for (const QString& name : files.entryList({"*.json"}, QDir::Files, QDir::Name)) {
        const QJsonArray content = readDocument(files.filePath(name)).array();
        for (const QJsonValue row : content) {
            rows.push_back({folder + "/" + name.toStdString(), row.toObject()});
        }
    }
    return rows;
}

QJsonObject standardScene() {
    return readDocument(QStringLiteral(WIRE_ROWS_FOLDER "/scene.json")).object();
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
