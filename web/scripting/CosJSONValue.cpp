#include "CosJSONValue.h"

#include <utility>

#include "../core/TextConversions.h"
#include "JSONText.h"

namespace DOVA::web::mi {

namespace {

using ribo::factory::kaArrayProxy;

QJsonValue undefined() {
    static const QJsonValue value(QJsonValue::Undefined);
    return value;
}

// What a value is not comes out as the empty or zero one.
QJsonArray toArray(const QJsonValue& self) {
    return self.toArray();
}
bool toBool(const QJsonValue& self) {
    return self.toBool();
}
double toDouble(const QJsonValue& self) {
    return self.toDouble();
}
int toInt(const QJsonValue& self) {
    return self.toInt();
}
QJsonObject toObject(const QJsonValue& self) {
    return self.toObject();
}
std::u16string toString(const QJsonValue& self) {
    return toU16(self.toString());
}

}  // namespace

CosJSONValue::CosJSONValue(std::string name, std::string qualifiedName)
    : COSClassInfo(std::move(name), std::move(qualifiedName)) {}

void CosJSONValue::describeOwnMembers() {
    constructor([](const QJsonObject& object) { return QJsonValue(object); });
    constructor([](const QJsonArray& array) { return QJsonValue(array); });
    constructor([](const kaArrayProxy& value) { return toJSON(value); });
    constant("Undefined", &undefined);
    method("isArray", &QJsonValue::isArray);
    method("isBool", &QJsonValue::isBool);
    method("isDouble", &QJsonValue::isDouble);
    method("isNull", &QJsonValue::isNull);
    method("isObject", &QJsonValue::isObject);
    method("isString", &QJsonValue::isString);
    method("isUndefined", &QJsonValue::isUndefined);
    property("Type", &typeOf);
    method("toArray", &toArray);
    method("toBool", &toBool);
    method("toDouble", &toDouble);
    method("toInt", &toInt);
    method("toObject", &toObject);
    method("toString", &toString);
}

}  // namespace DOVA::web::mi
