#include "ArrayEdits.h"

#include "host/Console.h"

namespace DOVA::web {

bool checkInsert(const QJsonArray& array, int index) {
    const bool fits = index >= 0 && index <= array.size();
    if (!fits) {
        utPrintf("Array index out of bounds for insert");
    }
    return fits;
}

bool checkReplace(const QJsonArray& array, int index) {
    const bool fits = index >= 0 && index < array.size();
    if (!fits) {
        utPrintf("Array index out of bounds for replace");
    }
    return fits;
}

}  // namespace DOVA::web
