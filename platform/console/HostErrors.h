#pragma once

#include <exception>
#include <lua.hpp>
#include <new>
#include <string>

#include "host/Error.h"

namespace DOVA::console {

/// Raises a Lua error with the place in the script that called the host. Does not return.
int raise(lua_State* state, const std::string& text);

/// Runs the body of a function that Lua calls, and makes a Lua error of what the host throws. For
/// want of memory everything is freed that scripts no longer hold, and the body runs once more.
/// Lua's own errors pass: they are exceptions of another kind, and run destructors as well.
template <class Body>
int guarded(lua_State* state, const Body& body) {
    const int top = lua_gettop(state);
    try {
        try {
            return body();
        } catch (const std::bad_alloc&) {
            lua_settop(state, top);
            lua_gc(state, LUA_GCCOLLECT);
            return body();
        }
    } catch (const host::Error& error) {
        return raise(state, error.what() + (" [" + error.identifier() + "]"));
    } catch (const std::exception& error) {
        return raise(state, error.what());
    }
}

}  // namespace DOVA::console
