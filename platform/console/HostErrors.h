#pragma once

#include <exception>
#include <lua.hpp>
#include <string>

#include "host/Error.h"

namespace DOVA::console {

/// Raises a Lua error with the place in the script that called the host. Does not return.
int raise(lua_State* state, const std::string& text);

/// Runs the body of a function that Lua calls, and makes a Lua error of what the host throws. Lua's
/// own errors pass: they are exceptions of another kind, and run destructors as well.
template <class Body>
int guarded(lua_State* state, const Body& body) {
    try {
        return body();
    } catch (const host::Error& error) {
        return raise(state, error.what() + (" [" + error.identifier() + "]"));
    } catch (const std::exception& error) {
        return raise(state, error.what());
    }
}

}  // namespace DOVA::console
