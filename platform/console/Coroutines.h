#pragma once

#include <lua.hpp>

namespace DOVA::console {

/// Has the functions of the coroutine library tell `Interrupt` which coroutine runs. For scripts
/// they stay as they are.
void followCoroutines(lua_State* state);

}  // namespace DOVA::console
