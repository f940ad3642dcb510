#include "CosJSONObject.h"

#include <utility>

#include "../core/TextConversions.h"
#include "JSONText.h"
#include "TextRoom.h"
#include "scripting/JSONObjectFunctions.h"

namespace DOVA::web::mi {

namespace {

using ribo::factory::kaArrayProxy;

// X is what scripts give: a JSON value, object or array, or any plain value.
template <class X>
void insert(QJsonObject& self, const std::u16string& key, X& value) {
    if (fits(key) && fitsQt(value) && makeRoom(self, bytesOf(key) + bytesOf(value)) &&
        checkLevels(self, levelsOf(value))) {
        self.insert(toView(key), toJSON(value));
    }
}

void insertFromJSON(QJsonObject& self, const std::u16string& key, const std::u16string& text) {
    levelsAtMost(self) = s_mostLevels;  // a parsed text has as many as any
    if (fits(key) && makeRoom(self, bytesOf(key))) {
        objectInsertFromJSON(self, key, text);
    }
}

kaArrayProxy value(QJsonObject& self, const std::u16string& key) {
    return elementToHost(objectValue(self, key), self);
}

}  // namespace

CosJSONObject::CosJSONObject(std::string name, std::string qualifiedName)
    : COSClassInfo(std::move(name), std::move(qualifiedName)) {}

void CosJSONObject::describeOwnMembers() {
    property("Length", &QJsonObject::size);
    method("isEmpty", &QJsonObject::isEmpty);
    method("keys", &objectGetKeys);
    method("remove", &objectRemove);
    method("insert", &insert<const QJsonValue>);
    method("insert", &insert<QJsonObject>);
    method("insert", &insert<QJsonArray>);
    method("insert", &insert<const kaArrayProxy>);
    method("insertFromJSON", &insertFromJSON);
    method("value", &value);
    method("valueToJSON", &objectValueToJSON);
    method("valueToJSON", &objectValueToJSONIndented);
    method("valueType", &objectValueType);
    method("toJSON", &objectToJSON);
    method("toJSON", &objectToJSONIndented);
    staticMethod("fromJSON", &objectFromJSON);
}

}  // namespace DOVA::web::mi
