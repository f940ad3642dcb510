#include "Libraries.h"

#include <cstddef>
#include <cstdlib>

#include "ConsoleFile.h"
#include "Coroutines.h"
#include "Interrupt.h"
#include "host/Console.h"

namespace DOVA::console {

namespace {

int print(lua_State* state) {
    const int count = lua_gettop(state);
    luaL_Buffer line;
    luaL_buffinit(state, &line);
    for (int index = 1; index <= count; ++index) {
        if (index > 1) {
            luaL_addchar(&line, '\t');
        }
        luaL_tolstring(state, index, nullptr);
        luaL_addvalue(&line);
    }
    luaL_addchar(&line, '\n');
    luaL_pushresult(&line);
    std::size_t size = 0;
    const char* text = lua_tolstring(state, -1, &size);
    host::printText({text, size});
    return 0;
}

int exitCodeAt(lua_State* state, int index) {
    if (lua_isboolean(state, index)) {
        return lua_toboolean(state, index) ? EXIT_SUCCESS : EXIT_FAILURE;
    }
    return static_cast<int>(luaL_optinteger(state, index, EXIT_SUCCESS));
}

int exit(lua_State* state) {
    const void* onExit = lua_touserdata(state, lua_upvalueindex(1));
    (*static_cast<const std::function<void(int)>*>(onExit))(exitCodeAt(state, 1));
    Interrupt::endScript(state);
    lua_pushnil(state);
    return lua_error(state);
}

/// In place of the library's own function, its upvalue.
int execute(lua_State* state) {
    flushConsoleFile();  // what the other program writes comes after it
    return lua_tocfunction(state, lua_upvalueindex(1))(state);
}

}  // namespace

void openLibraries(lua_State* state, const std::function<void(int exitCode)>& onExit) {
    luaL_openlibs(state);
    followCoroutines(state);
    sendOutputToConsole(state);
    lua_pushcfunction(state, print);
    lua_setglobal(state, "print");
    lua_getglobal(state, "os");
    lua_pushlightuserdata(state, const_cast<std::function<void(int)>*>(&onExit));
    lua_pushcclosure(state, exit, 1);
    lua_setfield(state, -2, "exit");
    lua_getfield(state, -1, "execute");
    lua_pushcclosure(state, execute, 1);
    lua_setfield(state, -2, "execute");
    lua_pop(state, 1);
}

}  // namespace DOVA::console
