#include "HostTypes.h"

#include "../core/TextConversions.h"
#include "JSONText.h"

namespace DOVA::web {

using ribo::factory::kaArrayProxy;
using seam::toScript;

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
    if (const auto flag = seam::flagOf(value.get())) {
        return *flag;
    }
    if (const auto number = seam::numberOf(value.get())) {
        return *number;
    }
    const std::u16string* text = seam::textOf(value.get());
    return text && fits(*text) ? QJsonValue(toQString(*text)) : QJsonValue(QJsonValue::Undefined);
}

bool fitsQt(const kaArrayProxy& value) {
    const std::u16string* text = seam::textOf(value.get());
    return !text || fits(*text);
}

kaArrayProxy toHost(const QJsonValue& value) {
    switch (value.type()) {
        case QJsonValue::Bool:
            return toScript(value.toBool());
        case QJsonValue::Double:
            return toScript(value.toDouble());
        case QJsonValue::String:
            return toScript(toU16(value.toString()));
        case QJsonValue::Array:
            return toScript(value.toArray());
        case QJsonValue::Object:
            return toScript(value.toObject());
        case QJsonValue::Null:
        case QJsonValue::Undefined:
            return toScript(value);
    }
    return {};
}

}  // namespace DOVA::web
