#pragma once

#include <QJsonValue>

#include "host/Array.h"

namespace DOVA::test {

// How the rows write host values. Numbers are double scalars, booleans logical scalars, texts
// character rows, arrays rows of cells, null is no value. Everything else is an object with one
// member that names the kind: {"int32": 1}, {"uint64": "18446744073709551615"},
// {"doubles": [1, 2]}, {"logicals": [true, false]}, {"lines": ["ab", "cd"]} (a character matrix),
// {"struct": {"a": 1}}, {"JSONArray": [1]}, {"JSONObject": {}}, {"JSONValue": [null]} with [] for
// Undefined, {"text": [["[", 1024], ["]", 1024]]} (texts, so many times).

/// The value that a row means.
host::ArrayPointer fromRow(const QJsonValue& row);
/// A value as a row writes it; Undefined for no value.
QJsonValue toRow(const kaArray* value);

}  // namespace DOVA::test
