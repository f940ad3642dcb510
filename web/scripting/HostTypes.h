#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>

#include "EnumerationNames.h"
#include "host/Utf8.h"
#include "host/ribo/factory/TypeOf.h"
#include "scripting/JSONFormat.h"
#include "scripting/JSONType.h"

// How the library's own types travel between scripts and C++.

namespace DOVA::web {

const EnumerationNames<JSONFormat>& namesOf(JSONFormat);
const EnumerationNames<JSONType>& namesOf(JSONType);

/// A host value as JSON: logical scalars, texts of any shape and numeric scalars; everything else
/// is Undefined, as is a text that is too long for Qt.
QJsonValue toJSON(const ribo::factory::kaArrayProxy& value);
inline QJsonValue toJSON(const QJsonValue& value) {
    return value;
}

/// True unless a host value is a text that is too long for Qt; then prints the parser's message.
bool fitsQt(const ribo::factory::kaArrayProxy& value);
template <class Value>
bool fitsQt(const Value&) {
    return true;
}

/// A JSON value as scripts have it: Bool, Double and String as plain values, the others as
/// instances of the library's classes.
ribo::factory::kaArrayProxy toHost(const QJsonValue& value);

/// An enumeration, which scripts know by the names of its values.
template <class Enumeration>
struct EnumerationType {
    DOVA_RIBO_TYPE_NAME("char vector")
    static Enumeration fromHost(const kaArray* value) {
        return namesOf(Enumeration()).valueOf(host::toUtf8(kaGetString(value)));
    }
    static host::ArrayPointer toHost(Enumeration value) {
        return host::ArrayPointer(
            kaCreateString(host::fromUtf8(namesOf(Enumeration()).nameOf(value))));
    }
};

}  // namespace DOVA::web

namespace ribo::factory {

template <>
struct TypeOf<QJsonValue> : InstanceType<QJsonValue> {
    DOVA_RIBO_TYPE_NAME("dova.web.JSONValue")
};
template <>
struct TypeOf<QJsonArray> : InstanceType<QJsonArray> {
    DOVA_RIBO_TYPE_NAME("dova.web.JSONArray")
};
template <>
struct TypeOf<QJsonObject> : InstanceType<QJsonObject> {
    DOVA_RIBO_TYPE_NAME("dova.web.JSONObject")
};
template <>
struct TypeOf<DOVA::web::JSONFormat> : DOVA::web::EnumerationType<DOVA::web::JSONFormat> {};
template <>
struct TypeOf<DOVA::web::JSONType> : DOVA::web::EnumerationType<DOVA::web::JSONType> {};

}  // namespace ribo::factory
