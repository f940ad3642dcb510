#pragma once

#include <lua.hpp>

namespace DOVA::console {

/// Has `io.stdout`, and `io.write` with it, print on the host's console like `print`: at once, so
/// that what the host prints comes in its place.
void sendOutputToConsole(lua_State* state);

}  // namespace DOVA::console
