#include "CosJSONArray.h"

#include <utility>

#include "ArrayEdits.h"
#include "TextRoom.h"
#include "scripting/JSONArrayFunctions.h"

namespace DOVA::web::mi {

namespace {

using ribo::factory::kaArrayProxy;

/// Whether what a script gives may become an element; otherwise prints why not.
template <class X>
bool mayAdd(QJsonArray& self, X& value) {
    return fitsQt(value) && makeRoom(self, bytesOf(value)) && checkLevels(self, levelsOf(value));
}

// X is what scripts give: a JSON value, object or array, or any plain value.
template <class X>
void insert(QJsonArray& self, int index, X& value) {
    if (checkInsert(self, index) && mayAdd(self, value)) {
        self.insert(index, toJSON(value));
    }
}
template <class X>
void append(QJsonArray& self, X& value) {
    if (mayAdd(self, value)) {
        self.append(toJSON(value));
    }
}
template <class X>
void prepend(QJsonArray& self, X& value) {
    if (mayAdd(self, value)) {
        self.prepend(toJSON(value));
    }
}
template <class X>
void replace(QJsonArray& self, int index, X& value) {
    if (checkReplace(self, index) && mayAdd(self, value)) {
        self.replace(index, toJSON(value));
    }
}

/// An edit with a parsed text, which has as many levels as any.
template <auto edit, class... Arguments>
void editFromText(QJsonArray& self, const Arguments&... arguments) {
    levelsAtMost(self) = s_mostLevels;
    edit(self, arguments...);
}

template <class X>
bool contains(const QJsonArray& self, const X& value) {
    return self.contains(toJSON(value));
}

kaArrayProxy value(QJsonArray& self, int index) {
    return elementToHost(self.at(index), self);
}

}  // namespace

CosJSONArray::CosJSONArray(std::string name, std::string qualifiedName)
    : COSClassInfo(std::move(name), std::move(qualifiedName)) {}

void CosJSONArray::describeOwnMembers() {
    property("Length", &QJsonArray::size);
    method("isEmpty", &QJsonArray::isEmpty);
    method("removeAt", &QJsonArray::removeAt);
    method("insert", &insert<const QJsonValue>);
    method("insert", &insert<QJsonObject>);
    method("insert", &insert<QJsonArray>);
    method("insert", &insert<const kaArrayProxy>);
    method("insertFromJSON", &editFromText<&arrayInsertFromJSON, int, std::u16string>);
    method("append", &append<const QJsonValue>);
    method("append", &append<QJsonObject>);
    method("append", &append<QJsonArray>);
    method("append", &append<const kaArrayProxy>);
    method("appendFromJSON", &editFromText<&arrayAppendFromJSON, std::u16string>);
    method("prepend", &prepend<const QJsonValue>);
    method("prepend", &prepend<QJsonObject>);
    method("prepend", &prepend<QJsonArray>);
    method("prepend", &prepend<const kaArrayProxy>);
    method(
        "prependFrmoJSON",
        &editFromText<&arrayPrependFromJSON, std::u16string>);  // scripts know it by this spelling
    method("replace", &replace<const QJsonValue>);
    method("replace", &replace<QJsonObject>);
    method("replace", &replace<QJsonArray>);
    method("replace", &replace<const kaArrayProxy>);
    method("replaceFrmoJSON",
           &editFromText<&arrayReplaceFromJSON, int, std::u16string>);  // and this one
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
