#include "HostValues.h"

#include <QJsonArray>
#include <QJsonObject>
#include <stdexcept>

#include "scripting/HostTypes.h"

namespace DOVA::test {

namespace {

using host::ArrayPointer;
using ribo::factory::TypeOf;

std::u16string u16(const QJsonValue& text) {
    return text.toString().toStdU16String();
}

template <class T>
std::vector<T> listOf(const QJsonValue& row) {
    std::vector<T> list;
    for (const QVariant& element : row.toArray().toVariantList()) {
        list.push_back(element.value<T>());
    }
    return list;
}

kaArray* cells(const QJsonArray& row) {
    std::vector<kaArray*> elements;
    for (const QJsonValue element : row) {
        elements.push_back(fromRow(element).release());
    }
    return kaCreateCellMatrix(1, elements.size(), elements.data());
}

kaArray* structOf(const QJsonObject& row) {
    const std::u16string name = row.keys().at(0).toStdU16String();
    const std::u16string_view view = name;
    kaArray* value = fromRow(row.begin().value()).release();
    return kaCreateStructScalar(1, &view, &value);
}

kaArray* lines(const QJsonArray& row) {
    std::u16string characters;
    const int columns = row.at(0).toString().size();
    for (int column = 0; column < columns; ++column) {
        for (const QJsonValue line : row) {
            characters += static_cast<char16_t>(line.toString().at(column).unicode());
        }
    }
    return kaCreateCharMatrix(row.size(), columns, characters.data());
}

kaArray* repeated(const QJsonArray& pieces) {
    std::u16string text;
    for (const QJsonValue piece : pieces) {
        const std::u16string once = u16(piece[0]);
        const auto times = static_cast<std::size_t>(piece[1].toInt());
        if (once.size() == 1) {
            text.append(times, once[0]);
        }
        for (std::size_t count = 0; once.size() > 1 && count < times; ++count) {
            text += once;
        }
    }
    return kaCreateString(text);
}

kaArray* logicals(const QJsonArray& row) {
    const bool elements[] = {row.at(0).toBool(), row.at(1).toBool()};
    return kaCreateLogicalMatrix(1, 2, elements);
}

QJsonValue jsonValue(const QJsonValue& row) {
    return row.toArray().isEmpty() ? QJsonValue(QJsonValue::Undefined) : row[0];
}

ArrayPointer ofKind(const QString& kind, const QJsonValue& row) {
    if (kind == "JSONArray" || kind == "JSONObject" || kind == "JSONValue") {
        return kind == "JSONArray"    ? TypeOf<QJsonArray>::toHost(row.toArray())
               : kind == "JSONObject" ? TypeOf<QJsonObject>::toHost(row.toObject())
                                      : TypeOf<QJsonValue>::toHost(jsonValue(row));
    }
    const auto doubles = listOf<double>(row);
    return ArrayPointer(
        kind == "int32"      ? kaCreateInt32Scalar(row.toInt())
        : kind == "uint64"   ? kaCreateUInt64Scalar(row.toString().toULongLong())
        : kind == "doubles"  ? kaCreateDoubleMatrix(1, doubles.size(), doubles.data())
        : kind == "logicals" ? logicals(row.toArray())
        : kind == "lines"    ? lines(row.toArray())
        : kind == "struct"   ? structOf(row.toObject())
        : kind == "text"     ? repeated(row.toArray())
                             : throw std::invalid_argument("no kind " + kind.toStdString()));
}

QJsonValue cellsToRow(const kaArray* value) {
    QJsonArray row;
    for (std::size_t index = 0; index < kaGetNumberOfElements(value); ++index) {
        row.append(toRow(kaGetCell(value, index)));
    }
    return row;
}

QJsonValue instanceToRow(const kaArray* value) {
    const std::string& name = ribo::Instance::of(value)->className();
    if (name == "dova.web.JSONArray") {
        return QJsonObject{{"JSONArray", TypeOf<QJsonArray>::fromHost(value)}};
    }
    if (name == "dova.web.JSONObject") {
        return QJsonObject{{"JSONObject", TypeOf<QJsonObject>::fromHost(value)}};
    }
    const QJsonValue inside = TypeOf<QJsonValue>::fromHost(value);
    return QJsonObject{{"JSONValue", inside.isUndefined() ? QJsonArray() : QJsonArray{inside}}};
}

}  // namespace

ArrayPointer fromRow(const QJsonValue& row) {
    switch (row.type()) {
        case QJsonValue::Bool:
            return ArrayPointer(kaCreateLogicalScalar(row.toBool()));
        case QJsonValue::Double:
            return ArrayPointer(kaCreateDoubleScalar(row.toDouble()));
        case QJsonValue::String:
            return ArrayPointer(kaCreateString(u16(row)));
        case QJsonValue::Array:
            return ArrayPointer(cells(row.toArray()));
        case QJsonValue::Object:
            return ofKind(row.toObject().begin().key(), row.toObject().begin().value());
        default:
            return nullptr;
    }
}

QJsonValue toRow(const kaArray* value) {
    if (value == nullptr) {
        return QJsonValue::Undefined;
    }
    switch (kaGetClassID(value)) {
        case kaClassID::Logical:
            return kaIsLogicalScalarTrue(value);
        case kaClassID::Double:
            return kaGetScalar(value);
        case kaClassID::Char:
            return QString::fromStdU16String(kaGetString(value));
        case kaClassID::Cell:
            return cellsToRow(value);
        case kaClassID::Object:
            return instanceToRow(value);
        default:
            return QJsonObject{{"int32", kaGetScalar(value)}};
    }
}

}  // namespace DOVA::test
