#include "NamespaceBinding.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "ClassBinding.h"
#include "HostErrors.h"
#include "ToHost.h"
#include "ToLua.h"

namespace DOVA::console {

using ribo::COSNamespace;
using ribo::InternedString;

namespace {

// Its address marks the metatable of namespaces, which the registry has there, too.
const char s_namespaces = 0;

// Of the function that looks globals up: what it found before, and when that was.
constexpr int s_cache = lua_upvalueindex(1);
constexpr int s_generation = lua_upvalueindex(2);

InternedString interned(std::string text) {
    return ribo::internal::makeInterned(std::move(text));
}

bool isVisible(const ribo::OverloadSet& function) {
    const auto& methods = function.getMethods();
    return std::any_of(methods.begin(), methods.end(),
                       [](const auto& method) { return !method.getAttributes().isHidden; });
}

lua_Integer current() {
    return static_cast<lua_Integer>(COSNamespace::generation());
}

/// Puts the value on top into the table below it, under the key at `key`.
void remember(lua_State* state, int table, int key) {
    lua_pushvalue(state, key);
    lua_pushvalue(state, -2);
    lua_rawset(state, table);
}

}  // namespace

COSNamespace* NamespaceBinding::Place::get() {
    if (generation != COSNamespace::generation()) {
        found = COSNamespace::getNamespace(fullName);
        generation = COSNamespace::generation();
    }
    return found;
}

const ribo::OverloadSet& NamespaceBinding::Function::get() {
    if (generation != COSNamespace::generation()) {
        COSNamespace* space = place.get();
        found = space != nullptr ? space->getFunction(name) : nullptr;
        generation = COSNamespace::generation();
    }
    if (found == nullptr) {
        throw std::runtime_error("the function " + place.fullName.text() + "." + name.text() +
                                 " is no longer there");
    }
    return *found;
}

void NamespaceBinding::addToGlobals(lua_State* state) {
    lua_getglobal(state, "setmetatable");
    lua_pushcclosure(state, setMetatable, 1);
    lua_setglobal(state, "setmetatable");
    lua_pushglobaltable(state);
    lua_newtable(state);
    pushReader(state);
    lua_setfield(state, -2, "__index");
    lua_setmetatable(state, -2);
    lua_pop(state, 1);
}

/// What looks globals up that no script has set.
void NamespaceBinding::pushReader(lua_State* state) {
    lua_newtable(state);
    lua_pushinteger(state, current());
    lua_pushcclosure(state, readGlobal, 2);
}

/// In place of `setmetatable`: another metatable of the globals leaves the namespaces reachable.
int NamespaceBinding::setMetatable(lua_State* state) {
    lua_pushglobaltable(state);
    const bool ofGlobals = lua_rawequal(state, 1, -1) != 0;
    lua_pop(state, 1);
    if (ofGlobals && lua_gettop(state) == 2 && lua_isnil(state, 2)) {
        lua_newtable(state);
        lua_replace(state, 2);
    }
    if (ofGlobals && lua_istable(state, 2)) {
        lua_pushliteral(state, "__index");
        lua_pushvalue(state, -1);
        lua_rawget(state, 2);
        lua_pushcclosure(state, readGlobalOrElse, 1);
        lua_rawset(state, 2);
    }
    return lua_tocfunction(state, lua_upvalueindex(1))(state);
}

/// A namespace, or what a script's own "__index" of the globals gives.
int NamespaceBinding::readGlobalOrElse(lua_State* state) {
    if (lua_type(state, 2) == LUA_TSTRING &&
        guarded(state, [&] { return pushTop(state, lua_tostring(state, 2)) ? 1 : 0; }) == 1) {
        return 1;
    }
    lua_settop(state, 2);
    const int other = lua_upvalueindex(1);
    lua_pushvalue(state, other);
    if (lua_isfunction(state, other)) {
        lua_insert(state, 1);
        lua_call(state, 2, 1);
    } else if (!lua_isnil(state, other)) {
        lua_pushvalue(state, 2);
        lua_gettable(state, -2);
    }
    return 1;
}

int NamespaceBinding::readGlobal(lua_State* state) {
    if (lua_type(state, 2) != LUA_TSTRING) {
        return 0;
    }
    if (lua_tointeger(state, s_generation) != current()) {
        lua_newtable(state);
        lua_replace(state, s_cache);
        lua_pushinteger(state, current());
        lua_replace(state, s_generation);
    }
    lua_pushvalue(state, 2);
    if (lua_rawget(state, s_cache) != LUA_TNIL) {
        return 1;
    }
    return guarded(state, [&] {
        if (pushTop(state, lua_tostring(state, 2))) {
            remember(state, s_cache, 2);
        }
        return 1;
    });
}

bool NamespaceBinding::pushTop(lua_State* state, const std::string& name) {
    // Compared as texts: every misspelt global would otherwise become a name that stays for good.
    for (const COSNamespace* each : COSNamespace::getTopNamespaces()) {
        if (each->getName().text() == name) {
            push(state, each->getFullName());
            return true;
        }
    }
    lua_pushnil(state);
    return false;
}

void NamespaceBinding::push(lua_State* state, InternedString fullName) {
    luaL_checkstack(state, 8, nullptr);
    new (lua_newuserdatauv(state, sizeof(Place), 1)) Place{fullName};
    lua_newtable(state);
    lua_setiuservalue(state, -2, 1);
    if (lua_rawgetp(state, LUA_REGISTRYINDEX, &s_namespaces) == LUA_TNIL) {
        lua_pop(state, 1);
        const luaL_Reg functions[] = {{"__index", read},
                                      {"__newindex", refuseWrite},
                                      {"__tostring", display},
                                      {nullptr, nullptr}};
        luaL_newlib(state, functions);
        lua_pushboolean(state, false);
        lua_setfield(state, -2, "__metatable");
        lua_pushliteral(state, "namespace");
        lua_setfield(state, -2, "__name");
        lua_pushvalue(state, -1);
        lua_rawsetp(state, LUA_REGISTRYINDEX, &s_namespaces);
    }
    lua_setmetatable(state, -2);
}

NamespaceBinding::Place* NamespaceBinding::placeAt(lua_State* state, int index) {
    if (lua_type(state, index) != LUA_TUSERDATA || !lua_getmetatable(state, index)) {
        return nullptr;
    }
    lua_rawgetp(state, LUA_REGISTRYINDEX, &s_namespaces);
    const bool isNamespace = lua_rawequal(state, -1, -2) != 0;
    lua_pop(state, 2);
    return isNamespace ? static_cast<Place*>(lua_touserdata(state, index)) : nullptr;
}

int NamespaceBinding::read(lua_State* state) {
    Place* place = placeAt(state, 1);
    luaL_argcheck(state, place != nullptr, 1, "namespace expected");
    if (place->generation != COSNamespace::generation()) {
        lua_newtable(state);
        lua_setiuservalue(state, 1, 1);
    }
    lua_settop(state, 2);
    lua_getiuservalue(state, 1, 1);
    lua_pushvalue(state, 2);
    if (lua_rawget(state, 3) != LUA_TNIL) {
        return 1;
    }
    return guarded(state, [&] {
        const std::string& fullName = place->fullName.text();
        COSNamespace* space = place->get();
        if (space == nullptr) {
            return luaL_error(state, "the namespace %s is no longer there", fullName.c_str());
        }
        const char* name = luaL_tolstring(state, 2, nullptr);
        if (!pushFound(state, *space, interned(name))) {
            return luaL_error(state, "%s has no member \"%s\"", fullName.c_str(), name);
        }
        remember(state, 3, 2);
        return 1;
    });
}

bool NamespaceBinding::pushFound(lua_State* state, COSNamespace& space, InternedString name) {
    if (const COSNamespace* inner = ribo::cosiToNamespace(space.getInnerNamespace(name))) {
        push(state, inner->getFullName());
        return true;
    }
    const ribo::OverloadSet* function = space.getFunction(name);
    if (function != nullptr && isVisible(*function)) {
        pushFunction(state, {{space.getFullName()}, name});
        return true;
    }
    const ribo::ClassPointer described = space.getClassInside(name);
    if (described != nullptr && !described->isHidden()) {
        ClassBinding::pushClass(state, described);
        return true;
    }
    return false;
}

void NamespaceBinding::pushFunction(lua_State* state, Function function) {
    new (lua_newuserdatauv(state, sizeof(Function), 0)) Function(function);
    lua_pushcclosure(state, call, 1);
}

int NamespaceBinding::call(lua_State* state) {
    auto& function = *static_cast<Function*>(lua_touserdata(state, lua_upvalueindex(1)));
    return guarded(state, [&] {
        const CallArguments arguments(state, 1);
        const ribo::OverloadSet& overloads = function.get();
        const auto* method = overloads.find(arguments.get());
        if (method != nullptr && method->getAttributes().isHidden) {
            return luaL_error(state, "%s cannot be called so", function.name.text().c_str());
        }
        host::ArrayPointer result = overloads.call(arguments.get());
        if (result == nullptr) {
            return 0;
        }
        pushValue(state, std::move(result));
        return 1;
    });
}

int NamespaceBinding::refuseWrite(lua_State* state) {
    Place* place = placeAt(state, 1);
    luaL_argcheck(state, place != nullptr, 1, "namespace expected");
    return luaL_error(state, "%s is a namespace: scripts add nothing to it",
                      place->fullName.text().c_str());
}

int NamespaceBinding::display(lua_State* state) {
    Place* place = placeAt(state, 1);
    luaL_argcheck(state, place != nullptr, 1, "namespace expected");
    lua_pushfstring(state, "namespace %s", place->fullName.text().c_str());
    return 1;
}

std::vector<std::string> NamespaceBinding::members(lua_State* state, int index) {
    std::vector<std::string> names;
    Place* place = placeAt(state, index);
    COSNamespace* space = place != nullptr ? place->get() : nullptr;
    if (space == nullptr) {
        return names;
    }
    for (const COSNamespace* inner : space->getInnerNamespaces()) {
        names.push_back(inner->getName().text());
    }
    for (const auto& function : space->getFunctions()) {
        if (!function.getAttributes().isHidden) {
            names.push_back(function.getName().text());
        }
    }
    for (const ribo::ClassPointer& each : space->getClasses()) {
        if (!each->isHidden()) {
            names.push_back(each->getName().text());
        }
    }
    return names;
}

std::vector<std::string> NamespaceBinding::topNames() {
    std::vector<std::string> names;
    for (const COSNamespace* each : COSNamespace::getTopNamespaces()) {
        names.push_back(each->getName().text());
    }
    return names;
}

}  // namespace DOVA::console
