#include "HostErrors.h"

namespace DOVA::console {

namespace {

/// Pushes the place of the innermost call that has one: functions of C have none.
void pushPlace(lua_State* state) {
    lua_Debug call;
    for (int level = 1; lua_getstack(state, level, &call) != 0; ++level) {
        lua_getinfo(state, "Sl", &call);
        if (call.currentline > 0) {
            lua_pushfstring(state, "%s:%d: ", call.short_src, call.currentline);
            return;
        }
    }
    lua_pushliteral(state, "");
}

}  // namespace

int raise(lua_State* state, const std::string& text) {
    pushPlace(state);
    lua_pushlstring(state, text.data(), text.size());
    lua_concat(state, 2);
    return lua_error(state);
}

}  // namespace DOVA::console
