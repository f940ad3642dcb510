#include "CosJSONArray.h"

#include <utility>

#include "ArrayEdits.h"
#include "scripting/JSONArrayFunctions.h"

namespace DOVA::web::mi {

namespace {

using ribo::factory::kaArrayProxy;

// X is what scripts give: a JSON value, object or array, or any plain value.
template <class X>
void insert(QJsonArray& self, int index, const X& value) {
    insertAt(self, index, toJSON(value));
}
template <class X>
void append(QJsonArray& self, const X& value) {
    self.append(toJSON(value));
}
template <class X>
void prepend(QJsonArray& self, const X& value) {
    self.prepend(toJSON(value));
}
template <class X>
void replace(QJsonArray& self, int index, const X& value) {
    replaceAt(self, index, toJSON(value));
}
template <class X>
bool contains(const QJsonArray& self, const X& value) {
    return self.contains(toJSON(value));
}

kaArrayProxy value(const QJsonArray& self, int index) {
    return toHost(self.at(index));
}

}  // namespace

CosJSONArray::CosJSONArray(std::string name, std::string qualifiedName)
    : COSClassInfo(std::move(name), std::move(qualifiedName)) {}

void CosJSONArray::describeOwnMembers() {
    property("Length", &QJsonArray::size);
    method("isEmpty", &QJsonArray::isEmpty);
    method("removeAt", &QJsonArray::removeAt);
    method("insert", &insert<QJsonValue>);
    method("insert", &insert<QJsonObject>);
    method("insert", &insert<QJsonArray>);
    method("insert", &insert<kaArrayProxy>);
    method("insertFromJSON", &arrayInsertFromJSON);
    method("append", &append<QJsonValue>);
    method("append", &append<QJsonObject>);
    method("append", &append<QJsonArray>);
    method("append", &append<kaArrayProxy>);
    method("appendFromJSON", &arrayAppendFromJSON);
    method("prepend", &prepend<QJsonValue>);
    method("prepend", &prepend<QJsonObject>);
    method("prepend", &prepend<QJsonArray>);
    method("prepend", &prepend<kaArrayProxy>);
    method("prependFrmoJSON", &arrayPrependFromJSON);  // scripts know it by this spelling
    method("replace", &replace<QJsonValue>);
    method("replace", &replace<QJsonObject>);
    method("replace", &replace<QJsonArray>);
    method("replace", &replace<kaArrayProxy>);
    method("replaceFrmoJSON", &arrayReplaceFromJSON);  // and this one
    method("value", &value);
    method("valueToJSON", &arrayValueToJSON);
    method("valueToJSON", &arrayValueToJSONIndented);
    method("valueType", &arrayValueType);
    method("contains", &contains<QJsonValue>);
    method("contains", &contains<QJsonObject>);
    method("contains", &contains<QJsonArray>);
    method("contains", &contains<kaArrayProxy>);
    method("contains", &arrayContainsFromJSON);  // every text is taken for JSON
    method("toJSON", &arrayToJSON);
    method("toJSON", &arrayToJSONIndented);
    staticMethod("fromJSON", &arrayFromJSON);
}

}  // namespace DOVA::web::mi
