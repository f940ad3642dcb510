#pragma once

#include <lua.hpp>

#include "host/Array.h"

namespace DOVA::console {

/// Pushes a value of the host: a logical is a boolean, a text a string in UTF-8, a number a number
/// (an integer where that says the same: whole doubles up to 2^53, int32, uint64 up to 2^63 - 1),
/// cells and matrices are tables with the keys 1 to n, column by column, a struct is a table with
/// its fields' names, an object itself; an empty double is nil. Raises a Lua error for cells in
/// more than 100 levels.
void pushValue(lua_State* state, host::ArrayPointer value);

}  // namespace DOVA::console
