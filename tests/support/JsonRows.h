#pragma once

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

#include "support/RowNames.h"

namespace DOVA::test {

/// What a file beside a test holds. One that cannot be read ends the program with a line that says
/// so.
inline QJsonDocument readJson(const QString& path) {
    QFile file(path);
    QJsonParseError error{0, QJsonParseError::IllegalValue};
    const bool isOpen = file.open(QIODevice::ReadOnly);
    auto document = QJsonDocument::fromJson(isOpen ? file.readAll() : QByteArray(), &error);
    if (document.isNull()) {
        std::cerr << path.toStdString() << ": " << error.errorString().toStdString() << " at "
                  << error.offset << "\n";
        std::exit(2);
    }
    return document;
}

inline std::string text(const QJsonValue& value, const char* otherwise = "") {
    return value.toString(otherwise).toStdString();
}

inline std::u16string u16(const QJsonValue& value) {
    return value.toString().toStdU16String();
}

/// One named case of such a file.
struct JsonRow {
    std::string name;
    QJsonObject content;

    QJsonValue operator[](const char* key) const { return content[QLatin1String(key)]; }
    std::string text(const char* key) const { return test::text((*this)[key]); }
};

/// The rows of an array, each with its "name".
inline std::vector<JsonRow> rowsOf(const QJsonValue& array) {
    std::vector<JsonRow> rows;
    for (const QJsonValue row : array.toArray()) {
        rows.push_back({text(row["name"]), row.toObject()});
    }
    return rows;
}

inline std::vector<JsonRow> readRows(const QString& path) {
    return rowsOf(readJson(path).array());
}

/// The rows of a part of a file that has several.
inline std::vector<JsonRow> readRows(const QString& path, const char* part) {
    return rowsOf(readJson(path).object()[QLatin1String(part)]);
}

}  // namespace DOVA::test
