#pragma once

#include <cstddef>
#include <lua.hpp>

namespace DOVA::console {

/// Tells Lua's collector of memory that the host takes for values of Lua, which it sees as a
/// pointer each: it collects as if Lua had taken as much. Any value that is not on the stack may be
/// freed.
void countHostMemory(lua_State* state, std::size_t bytes);

}  // namespace DOVA::console
