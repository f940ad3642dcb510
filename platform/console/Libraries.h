#pragma once

#include <functional>
#include <lua.hpp>

namespace DOVA::console {

/// Opens Lua's standard libraries, and puts in place what differs from the lua program: `print` and
/// `io.stdout` go to the host's console, and texts keep their order; `os.exit` reports the exit
/// code, and ends the script so that no `pcall` keeps it alive. `onExit` must outlive the state.
void openLibraries(lua_State* state, const std::function<void(int exitCode)>& onExit);

}  // namespace DOVA::console
