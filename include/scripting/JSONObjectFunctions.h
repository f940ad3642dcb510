#pragma once

#include <QJsonObject>
#include <QJsonValue>
#include <string>
#include <vector>

#include "core/WebExport.h"
#include "scripting/JSONFormat.h"
#include "scripting/JSONType.h"

/// What scripts do with JSON objects. Texts, parsing and writing are as in JSONArrayFunctions.h. A
/// key is any text, the empty one too; one that is longer than a text may be is in no object, and
/// inserting under it changes nothing and prints the parser's message for what is too large.
namespace DOVA::web {

/// The object that a text stands for; empty if it stands for an array, or for nothing.
DOVA_WEB_EXPORT QJsonObject objectFromJSON(const std::u16string& text);

/// The text of an object, its keys in the object's order.
DOVA_WEB_EXPORT std::u16string objectToJSON(const QJsonObject& object, JSONFormat format);
/// The same, indented.
DOVA_WEB_EXPORT std::u16string objectToJSONIndented(const QJsonObject& object);

/// The keys in the object's own order, which is that of their UTF-16 code units.
DOVA_WEB_EXPORT std::vector<std::u16string> objectGetKeys(const QJsonObject& object);

/// Puts what a text stands for under a key, in place of any earlier value; Null for a text that is
/// no document.
DOVA_WEB_EXPORT void objectInsertFromJSON(QJsonObject& object, const std::u16string& key,
                                          const std::u16string& text);
/// Puts a value under a key, in place of any earlier one. Undefined takes the key out. A value of
/// 1024 levels or more prints the parser's message and changes nothing.
DOVA_WEB_EXPORT void objectInsertValue(QJsonObject& object, const std::u16string& key,
                                       const QJsonValue& value);
/// Takes a key out, if it is there.
DOVA_WEB_EXPORT void objectRemove(QJsonObject& object, const std::u16string& key);

/// The value under a key; Undefined if the key is not there.
DOVA_WEB_EXPORT QJsonValue objectValue(const QJsonObject& object, const std::u16string& key);

/// The text of the value under a key, if it is an array or an object; empty for every other value
/// and for a key that is not there.
DOVA_WEB_EXPORT std::u16string objectValueToJSON(const QJsonObject& object,
                                                 const std::u16string& key, JSONFormat format);
/// The same, indented.
DOVA_WEB_EXPORT std::u16string objectValueToJSONIndented(const QJsonObject& object,
                                                         const std::u16string& key);

/// The kind of the value under a key; UndefinedType if the key is not there.
DOVA_WEB_EXPORT JSONType objectValueType(const QJsonObject& object, const std::u16string& key);

}  // namespace DOVA::web
