#pragma once

#include <QJsonArray>

namespace DOVA::web {

/// True if an element can come before the element `index` of the array, or at its end; otherwise
/// prints so, without a line break.
bool checkInsert(const QJsonArray& array, int index);
/// True if the array has an element `index`; otherwise prints that it cannot be replaced.
bool checkReplace(const QJsonArray& array, int index);

}  // namespace DOVA::web
