#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <optional>
#include <string>

#include "EnumerationNames.h"
#include "host/Utf8.h"
#include "host/ribo/factory/TypeOf.h"
#include "scripting/JSONFormat.h"
#include "scripting/JSONType.h"

// How the values of scripts, and the library's own types among them, travel to and from C++.

namespace DOVA::web {

const EnumerationNames<JSONFormat>& namesOf(JSONFormat);
const EnumerationNames<JSONType>& namesOf(JSONType);

}  // namespace DOVA::web

namespace DOVA::seam {

/// A logical scalar; nothing of any other value.
std::optional<bool> flagOf(const kaArray* value);
/// A numeric scalar; nothing of any other value.
std::optional<double> numberOf(const kaArray* value);
/// A text of any shape, column by column, which lives as long as the value; null of any other.
const std::u16string* textOf(const kaArray* value);

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

}  // namespace DOVA::seam

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
struct TypeOf<DOVA::web::JSONFormat> : DOVA::seam::EnumerationType<DOVA::web::JSONFormat> {};
template <>
struct TypeOf<DOVA::web::JSONType> : DOVA::seam::EnumerationType<DOVA::web::JSONType> {};

}  // namespace ribo::factory

namespace DOVA::seam {

/// A value of C++ as scripts have it: an instance, if its type is a class of the library.
template <class T>
ribo::factory::kaArrayProxy toScript(const T& value) {
    return ribo::factory::kaArrayProxy(ribo::factory::TypeOf<T>::toHost(value));
}

/// What an instance of a class of the library holds.
template <class T>
T& heldBy(const ribo::factory::kaArrayProxy& instance) {
    return ribo::factory::TypeOf<T>::fromHost(instance.get());
}

}  // namespace DOVA::seam
