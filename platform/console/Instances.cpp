#include "Instances.h"

#include <new>
#include <utility>

#include "ClassBinding.h"
#include "HostMemory.h"
#include "host/ribo/Instance.h"

namespace DOVA::console {

namespace {

// Its address marks the metatables of instances.
const char s_mark = 0;
// Its address is where the registry has the metatable for objects of no described class.
const char s_plain = 0;

/// What stands in the Lua value.
using Box = host::ArrayPointer;

Box* boxAt(lua_State* state, int index) {
    void* place = lua_touserdata(state, index);
    if (place == nullptr || !lua_getmetatable(state, index)) {
        return nullptr;
    }
    const bool isInstance = lua_rawgetp(state, -1, &s_mark) != LUA_TNIL;
    lua_pop(state, 2);
    return isInstance ? static_cast<Box*>(place) : nullptr;
}

int free(lua_State* state) {
    if (Box* box = boxAt(state, 1)) {
        box->reset();
    }
    return 0;
}

int plainToString(lua_State* state) {
    const kaObject* object = kaGetObject(Instances::find(state, 1));
    lua_pushstring(state, object != nullptr ? object->className().c_str() : "");
    return 1;
}

void pushPlainMetatable(lua_State* state) {
    if (lua_rawgetp(state, LUA_REGISTRYINDEX, &s_plain) == LUA_TNIL) {
        lua_pop(state, 1);
        lua_newtable(state);
        Instances::prepareMetatable(state);
        lua_pushcfunction(state, plainToString);
        lua_setfield(state, -2, "__tostring");
        lua_pushvalue(state, -1);
        lua_rawsetp(state, LUA_REGISTRYINDEX, &s_plain);
    }
}

}  // namespace

void Instances::push(lua_State* state, host::ArrayPointer object) {
    luaL_checkstack(state, 8, nullptr);
    // The metatable first: from the value's birth on Lua frees what is in it.
    if (const ribo::Instance* instance = ribo::Instance::of(object.get())) {
        ClassBinding::pushInstanceMetatable(state, instance->getClass());
    } else {
        pushPlainMetatable(state);
    }
    Box* box = new (lua_newuserdatauv(state, sizeof(Box), 0)) Box;
    lua_rotate(state, -2, 1);
    lua_setmetatable(state, -2);
    *box = std::move(object);
    if (const ribo::Instance* instance = ribo::Instance::of(box->get())) {
        countHostMemory(state, instance->getClass()->weighInstance(instance->getData()));
    }
}

const kaArray* Instances::find(lua_State* state, int index) {
    const Box* box = boxAt(state, index);
    if (box == nullptr) {
        return nullptr;
    }
    if (*box == nullptr) {
        luaL_error(state, "the value was closed");
    }
    return box->get();
}

void Instances::prepareMetatable(lua_State* state) {
    lua_pushboolean(state, true);
    lua_rawsetp(state, -2, &s_mark);
    lua_pushcfunction(state, free);
    lua_setfield(state, -2, "__gc");
    lua_pushcfunction(state, free);
    lua_setfield(state, -2, "__close");
    lua_pushboolean(state, false);
    lua_setfield(state, -2, "__metatable");
}

}  // namespace DOVA::console
