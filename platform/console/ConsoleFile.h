#pragma once

#include <lua.hpp>

namespace DOVA::console {

/// Has `io.stdout`, and `io.write` with it, print on the host's console like `print`: at once where
/// standard output is a terminal, otherwise through a buffer. The buffer is emptied before anything
/// else is printed there, and before `io.stderr` is written to, so that all texts keep their order.
void sendOutputToConsole(lua_State* state);

/// Prints what is in the buffer: to be called when a script has ended, and before anybody else
/// writes to where the console goes.
void flushConsoleFile();

}  // namespace DOVA::console
