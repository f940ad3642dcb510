#include "scripting/JSONArrayFunctions.h"

#include "ArrayEdits.h"
#include "JSONText.h"

namespace DOVA::web {

QJsonArray arrayFromJSON(const std::u16string& text) {
    return parseText(text).array();
}

std::u16string arrayToJSON(const QJsonArray& array, JSONFormat format) {
    return writeText(QJsonDocument(array), format);
}

std::u16string arrayToJSONIndented(const QJsonArray& array) {
    return arrayToJSON(array, JSONFormat::Indented);
}

void arrayInsertFromJSON(QJsonArray& array, int index, const std::u16string& text) {
    if (!checkInsert(array, index)) {
        return;
    }
    if (const auto element = elementFromText(text)) {
        array.insert(index, *element);
    }
}

void arrayAppendFromJSON(QJsonArray& array, const std::u16string& text) {
    if (const auto element = elementFromText(text)) {
        array.append(*element);
    }
}

void arrayPrependFromJSON(QJsonArray& array, const std::u16string& text) {
    if (const auto element = elementFromText(text)) {
        array.prepend(*element);
    }
}

void arrayReplaceFromJSON(QJsonArray& array, int index, const std::u16string& text) {
    if (!checkReplace(array, index)) {
        return;
    }
    if (const auto element = elementFromText(text)) {
        array.replace(index, *element);
    }
}

bool arrayContainsFromJSON(const QJsonArray& array, const std::u16string& text) {
    return array.contains(valueFromText(text));
}

std::u16string arrayValueToJSON(const QJsonArray& array, int index, JSONFormat format) {
    return writeText(documentOf(array.at(index)), format);
}

std::u16string arrayValueToJSONIndented(const QJsonArray& array, int index) {
    return arrayValueToJSON(array, index, JSONFormat::Indented);
}

JSONType arrayValueType(const QJsonArray& array, int index) {
    return typeOf(array.at(index));
}

}  // namespace DOVA::web
