#include "HostTypes.h"

#include "../core/TextConversions.h"
#include "JSONText.h"

namespace DOVA::web {

namespace {

using ribo::factory::kaArrayProxy;
using ribo::factory::TypeOf;

QJsonValue textToJSON(const std::u16string& text) {
    return fits(text) ? QJsonValue(toQString(text)) : QJsonValue(QJsonValue::Undefined);
}

}  // namespace

const EnumerationNames<JSONFormat>& namesOf(JSONFormat) {
    static const EnumerationNames<JSONFormat> names{
        {"Indented", JSONFormat::Indented},
        {"Compact", JSONFormat::Compact},
    };
    return names;
}

const EnumerationNames<JSONType>& namesOf(JSONType) {
    static const EnumerationNames<JSONType> names{
        {"NullType", JSONType::NullType},           {"LogicalType", JSONType::LogicalType},
        {"NumberType", JSONType::NumberType},       {"StringType", JSONType::StringType},
        {"ArrayType", JSONType::ArrayType},         {"ObjectType", JSONType::ObjectType},
        {"UndefinedType", JSONType::UndefinedType},
    };
    return names;
}

QJsonValue toJSON(const kaArrayProxy& value) {
    const kaArray* array = value.get();
    return kaIsLogicalScalar(array) ? QJsonValue(kaIsLogicalScalarTrue(array))
           : kaIsChar(array)        ? textToJSON(kaGetString(array))
           : kaIsNumeric(array) && matrix::isScalar(array) ? QJsonValue(kaGetScalar(array))
                                                           : QJsonValue(QJsonValue::Undefined);
}

bool fitsQt(const kaArrayProxy& value) {
    return !kaIsChar(value.get()) || fits(kaGetNumberOfElements(value.get()));
}

kaArrayProxy toHost(const QJsonValue& value) {
    switch (value.type()) {
        case QJsonValue::Bool:
            return kaArrayProxy(TypeOf<bool>::toHost(value.toBool()));
        case QJsonValue::Double:
            return kaArrayProxy(TypeOf<double>::toHost(value.toDouble()));
        case QJsonValue::String:
            return kaArrayProxy(TypeOf<std::u16string>::toHost(toU16(value.toString())));
        case QJsonValue::Array:
            return kaArrayProxy(TypeOf<QJsonArray>::toHost(value.toArray()));
        case QJsonValue::Object:
            return kaArrayProxy(TypeOf<QJsonObject>::toHost(value.toObject()));
        case QJsonValue::Null:
        case QJsonValue::Undefined:
            return kaArrayProxy(TypeOf<QJsonValue>::toHost(value));
    }
    return {};
}

}  // namespace DOVA::web
