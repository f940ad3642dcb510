#include "Coroutines.h"

#include "Interrupt.h"

namespace DOVA::console {

namespace {

constexpr int s_coroutine = lua_upvalueindex(1);
constexpr int s_original = lua_upvalueindex(2);

/// In place of a function that runs a coroutine, its first upvalue or else its first argument. The
/// library's own function is called inside the same call of Lua, where it finds either.
int run(lua_State* state) {
    lua_State* const own = lua_tothread(state, s_coroutine);
    const Interrupt::Coroutine running(own != nullptr ? own : lua_tothread(state, 1));
    return lua_tocfunction(state, s_original)(state);
}

/// In place of `coroutine.wrap`, whose result has the coroutine for its upvalue.
int wrap(lua_State* state) {
    lua_tocfunction(state, s_original)(state);
    lua_getupvalue(state, -1, 1);
    lua_pushcfunction(state, lua_tocfunction(state, -2));
    lua_pushcclosure(state, run, 2);
    return 1;
}

void replace(lua_State* state, const char* name, lua_CFunction function) {
    lua_pushnil(state);
    lua_getfield(state, -2, name);
    lua_pushcclosure(state, function, 2);
    lua_setfield(state, -2, name);
}

}  // namespace

void followCoroutines(lua_State* state) {
    lua_getglobal(state, LUA_COLIBNAME);
    replace(state, "resume", run);
    replace(state, "close", run);
    replace(state, "wrap", wrap);
    lua_pop(state, 1);
}

}  // namespace DOVA::console
