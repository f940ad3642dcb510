#pragma once

#include <lua.hpp>

#include "host/Array.h"

namespace DOVA::console {

/// Objects of the host as Lua values. A Lua value holds the object itself: what a method changes is
/// seen through every Lua value that names it.
class Instances {
public:
    /// Pushes a Lua value that owns the object array, with what its class has.
    static void push(lua_State* state, host::ArrayPointer object);

    /// The object array at `index`, borrowed: valid for as long as Lua holds the value and did not
    /// close it. Null when something else stands there. Raises a Lua error for a closed value.
    static const kaArray* find(lua_State* state, int index);

    /// Sets in the metatable on top what every instance needs to be freed.
    static void prepareMetatable(lua_State* state);
};

}  // namespace DOVA::console
