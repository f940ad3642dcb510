#include "CosJSONObject.h"

#include <utility>

#include "scripting/JSONObjectFunctions.h"

namespace DOVA::web::mi {

namespace {

using ribo::factory::kaArrayProxy;

// X is what scripts give: a JSON object or array, or any plain value.
template <class X>
void insert(QJsonObject& self, const std::u16string& key, const X& value) {
    objectInsertValue(self, key, toJSON(value));
}

kaArrayProxy value(const QJsonObject& self, const std::u16string& key) {
    return toHost(objectValue(self, key));
}

}  // namespace

CosJSONObject::CosJSONObject(std::string name, std::string qualifiedName)
    : COSClassInfo(std::move(name), std::move(qualifiedName)) {}

void CosJSONObject::describeOwnMembers() {
    property("Length", &QJsonObject::size);
    method("isEmpty", &QJsonObject::isEmpty);
    method("keys", &objectGetKeys);
    method("remove", &objectRemove);
    method("insert", &objectInsertValue);
    method("insert", &insert<QJsonObject>);
    method("insert", &insert<QJsonArray>);
    method("insert", &insert<kaArrayProxy>);
    method("insertFromJSON", &objectInsertFromJSON);
    method("value", &value);
    method("valueToJSON", &objectValueToJSON);
    method("valueToJSON", &objectValueToJSONIndented);
    method("valueType", &objectValueType);
    method("toJSON", &objectToJSON);
    method("toJSON", &objectToJSONIndented);
    staticMethod("fromJSON", &objectFromJSON);
}

}  // namespace DOVA::web::mi
