#pragma once

#include <QJsonValue>

#include "../seam/ScriptTypes.h"

namespace DOVA::web {

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

}  // namespace DOVA::web
