#include "HostErrors.h"

namespace DOVA::console {

int raise(lua_State* state, const std::string& text) {
    luaL_where(state, 1);
    lua_pushlstring(state, text.data(), text.size());
    lua_concat(state, 2);
    return lua_error(state);
}

}  // namespace DOVA::console
