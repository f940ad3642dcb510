#include "Instances.h"

#include <new>
#include <utility>

#include "ClassBinding.h"
#include "HostMemory.h"
#include "host/ribo/Instance.h"

namespace DOVA::console {

namespace {

// Its address marks the Lua values of instances.
const char s_mark = 0;
// Its address is where the registry has the metatable for objects of no described class.
const char s_plain = 0;

/// What stands in the Lua value. Nothing else that a script can hold begins with that address; to
/// look into the metatable instead would double what finding an instance costs.
struct Box {
    const void* mark = &s_mark;
    host::ArrayPointer object;
};

Box* boxAt(lua_State* state, int index) {
    auto* box = static_cast<Box*>(lua_touserdata(state, index));
    const bool isBox =
        box != nullptr && lua_rawlen(state, index) >= sizeof(Box) && box->mark == &s_mark;
    return isBox ? box : nullptr;
}

int free(lua_State* state) {
    if (Box* box = boxAt(state, 1)) {
        box->object.reset();
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
    box->object = std::move(object);
    if (const ribo::Instance* instance = ribo::Instance::of(box->object.get())) {
        countHostMemory(state, instance->getClass()->weighInstance(instance->getData()));
    }
}

const kaArray* Instances::find(lua_State* state, int index) {
    const Box* box = boxAt(state, index);
    if (box == nullptr) {
        return nullptr;
    }
    if (box->object == nullptr) {
        luaL_error(state, "the value was closed");
    }
    return box->object.get();
}

void Instances::prepareMetatable(lua_State* state) {
    lua_pushcfunction(state, free);
    lua_setfield(state, -2, "__gc");
    lua_pushcfunction(state, free);
    lua_setfield(state, -2, "__close");
    lua_pushboolean(state, false);
    lua_setfield(state, -2, "__metatable");
}

}  // namespace DOVA::console
