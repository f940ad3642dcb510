#include "ClassBinding.h"

#include <string>
#include <utility>

#include "HostErrors.h"
#include "Instances.h"
#include "ToHost.h"
#include "ToLua.h"
#include "host/ribo/Instance.h"

namespace DOVA::console {

using ribo::OverloadSet;
using ribo::factory::RiboMethod;
using ribo::factory::RiboProperty;

namespace {

// Its address is where the registry has all bindings, by class, and where a metatable has the table
// of its members.
const char s_bindings = 0;
const char s_members = 0;

// The first upvalue of every function that is made for a binding is the binding's Lua value.
constexpr int s_binding = lua_upvalueindex(1);
constexpr int s_second = lua_upvalueindex(2);

void setFunction(lua_State* state, const char* name, lua_CFunction function, int binding) {
    lua_pushvalue(state, binding);
    lua_pushcclosure(state, function, 1);
    lua_setfield(state, -2, name);
}

void* member(lua_State* state) {
    lua_pushvalue(state, 2);
    return lua_rawget(state, s_second) == LUA_TLIGHTUSERDATA ? lua_touserdata(state, -1) : nullptr;
}

/// The registry's table of all bindings, which does not keep them alive.
void pushBindings(lua_State* state) {
    if (lua_rawgetp(state, LUA_REGISTRYINDEX, &s_bindings) != LUA_TNIL) {
        return;
    }
    lua_pop(state, 1);
    lua_newtable(state);
    lua_createtable(state, 0, 1);
    lua_pushliteral(state, "v");
    lua_setfield(state, -2, "__mode");
    lua_setmetatable(state, -2);
    lua_pushvalue(state, -1);
    lua_rawsetp(state, LUA_REGISTRYINDEX, &s_bindings);
}

}  // namespace

ClassBinding::ClassBinding(ribo::ClassPointer described) : m_class(std::move(described)) {}

void ClassBinding::pushClass(lua_State* state, const ribo::ClassPointer& described) {
    push(state, described, Side::Class);
}

void ClassBinding::pushInstanceMetatable(lua_State* state, const ribo::ClassPointer& described) {
    push(state, described, Side::Instance);
}

void ClassBinding::push(lua_State* state, const ribo::ClassPointer& described, Side side) {
    luaL_checkstack(state, 8, nullptr);
    pushBindings(state);
    if (lua_rawgetp(state, -1, described.get()) == LUA_TNIL) {
        lua_pop(state, 1);
        build(state, described);
        lua_pushvalue(state, -1);
        lua_rawsetp(state, -3, described.get());
    }
    lua_getiuservalue(state, -1, static_cast<int>(side));
    lua_replace(state, -3);
    lua_pop(state, 1);
}

void ClassBinding::build(lua_State* state, const ribo::ClassPointer& described) {
    // NOLINTNEXTLINE(bugprone-sizeof-expression): the storage of Lua's holds one pointer.
    auto** place = static_cast<ClassBinding**>(lua_newuserdatauv(state, sizeof(ClassBinding*), 2));
    *place = nullptr;
    if (luaL_newmetatable(state, "dova console class binding")) {
        lua_pushcfunction(state, destroy);
        lua_setfield(state, -2, "__gc");
    }
    lua_setmetatable(state, -2);
    *place = new ClassBinding(described);

    const int binding = lua_gettop(state);
    lua_newuserdatauv(state, 0, 0);
    (*place)->pushMetatable(state, binding, Side::Class);
    lua_setmetatable(state, -2);
    lua_setiuservalue(state, binding, static_cast<int>(Side::Class));
    (*place)->pushMetatable(state, binding, Side::Instance);
    Instances::prepareMetatable(state);
    lua_setiuservalue(state, binding, static_cast<int>(Side::Instance));
}

int ClassBinding::destroy(lua_State* state) {
    delete std::exchange(*static_cast<ClassBinding**>(lua_touserdata(state, 1)), nullptr);
    return 0;
}

ClassBinding& ClassBinding::current(lua_State* state) {
    auto* binding = *static_cast<ClassBinding**>(lua_touserdata(state, s_binding));
    if (binding == nullptr) {
        luaL_error(state, "the console is closing");  // a finaliser that comes late
    }
    return *binding;
}

void ClassBinding::pushMetatable(lua_State* state, int binding, Side side) {
    lua_newtable(state);
    pushMembers(state, binding, side);
    constexpr std::pair<const char*, lua_CFunction> functions[] = {{"__index", read},
                                                                   {"__newindex", write}};
    for (const auto& [name, function] : functions) {
        lua_pushvalue(state, binding);
        lua_pushvalue(state, -2);
        lua_pushcclosure(state, function, 2);
        lua_setfield(state, -3, name);
    }
    lua_rawsetp(state, -2, &s_members);
    setFunction(state, "__tostring", display, binding);
    lua_pushstring(state, m_class->getFullName().text().c_str());
    lua_setfield(state, -2, "__name");
    lua_pushboolean(state, false);
    lua_setfield(state, -2, "__metatable");
    side == Side::Class ? addConstructor(state, binding) : addEquality(state, binding);
}

void ClassBinding::pushMembers(lua_State* state, int binding, Side side) {
    lua_newtable(state);
    addMethods(state, binding, side);
    addProperties(state, side);
}

bool ClassBinding::pushMembers(lua_State* state, int index) {
    if (!lua_getmetatable(state, index)) {
        return false;
    }
    const bool isTable = lua_rawgetp(state, -1, &s_members) == LUA_TTABLE;
    lua_replace(state, -2);
    lua_settop(state, lua_gettop(state) - (isTable ? 0 : 1));
    return isTable;
}

void ClassBinding::addMethods(lua_State* state, int binding, Side side) {
    const ribo::ClassMembers& members = m_class->getMembers();
    for (const RiboMethod& method : members.getMethods()) {
        const ribo::InternedString name = method.getName();
        const bool isNew = lua_getfield(state, -1, name.text().c_str()) == LUA_TNIL;
        lua_pop(state, 1);
        const OverloadSet* methods =
            isNew ? visible(members.findMethod(name), side == Side::Class) : nullptr;
        if (methods != nullptr) {
            lua_pushvalue(state, binding);
            lua_pushlightuserdata(state, const_cast<OverloadSet*>(methods));
            lua_pushcclosure(state, callMethod, 2);
            lua_setfield(state, -2, name.text().c_str());
        }
    }
}

void ClassBinding::addProperties(lua_State* state, Side side) const {
    for (const RiboProperty& property : m_class->getMembers().getProperties()) {
        const auto& attributes = property.getAttributes();
        if (!attributes.isHidden && (side == Side::Instance || attributes.isConstant)) {
            lua_pushlightuserdata(state, const_cast<RiboProperty*>(&property));
            lua_setfield(state, -2, property.getName().text().c_str());
        }
    }
}

void ClassBinding::addConstructor(lua_State* state, int binding) {
    const OverloadSet* constructors = visible(&m_class->getMembers().getConstructors(), true);
    if (constructors != nullptr && !m_class->isAbstract()) {
        lua_pushvalue(state, binding);
        lua_pushlightuserdata(state, const_cast<OverloadSet*>(constructors));
        lua_pushcclosure(state, construct, 2);
        lua_setfield(state, -2, "__call");
    }
}

void ClassBinding::addEquality(lua_State* state, int binding) {
    const auto name = ribo::internal::makeInterned("eq");
    if (const OverloadSet* equality = visible(m_class->getMembers().findMethod(name), false)) {
        lua_pushvalue(state, binding);
        lua_pushlightuserdata(state, const_cast<OverloadSet*>(equality));
        lua_pushcclosure(state, compare, 2);
        lua_setfield(state, -2, "__eq");
    }
}

const OverloadSet* ClassBinding::visible(const OverloadSet* methods, bool areStatic) {
    if (methods == nullptr) {
        return nullptr;
    }
    OverloadSet result;
    for (const RiboMethod& method : methods->getMethods()) {
        const auto& attributes = method.getAttributes();
        if (!attributes.isHidden && attributes.isStatic == areStatic) {
            result.add(method);
        }
    }
    return result.getMethods().empty() ? nullptr : &m_overloads.emplace_back(std::move(result));
}

int ClassBinding::callMethod(lua_State* state) {
    current(state);
    const auto& methods = *static_cast<const OverloadSet*>(lua_touserdata(state, s_second));
    return guarded(state, [&] {
        const CallArguments arguments(state, 1);
        host::ArrayPointer result = methods.call(arguments.get());
        if (result == nullptr) {
            return 0;
        }
        pushValue(state, std::move(result));
        return 1;
    });
}

int ClassBinding::construct(lua_State* state) {
    lua_remove(state, 1);  // the class itself
    return callMethod(state);
}

int ClassBinding::read(lua_State* state) {
    const ClassBinding& binding = current(state);
    if (const void* property = member(state)) {
        return binding.readProperty(state, *static_cast<const RiboProperty*>(property));
    }
    return lua_isnil(state, -1) ? binding.refuse(state, "%s has no member \"%s\"") : 1;
}

int ClassBinding::readProperty(lua_State* state, const RiboProperty& property) const {
    return guarded(state, [&] {
        const kaArray* self = property.getAttributes().isConstant ? nullptr : ownInstance(state);
        pushValue(state, property.get(self));
        return 1;
    });
}

int ClassBinding::write(lua_State* state) {
    const ClassBinding& binding = current(state);
    const void* property = member(state);
    if (property == nullptr) {
        return binding.refuse(
            state, lua_isnil(state, -1) ? "%s has no property \"%s\"" : "%s: \"%s\" is a method");
    }
    const auto& known = *static_cast<const RiboProperty*>(property);
    if (known.isReadOnly()) {
        return binding.refuse(state, "%s: the property \"%s\" can only be read");
    }
    return guarded(state, [&] {
        const kaArray* self =
            known.getAttributes().isConstant ? nullptr : binding.ownInstance(state);
        known.set(self, toHost(state, 3).get());
        return 0;
    });
}

/// The instance that a member is asked of. The debug library can hand a metatable's functions any
/// value.
const kaArray* ClassBinding::ownInstance(lua_State* state) const {
    const kaArray* value = Instances::find(state, 1);
    const ribo::Instance* instance = ribo::Instance::of(value);
    if (instance == nullptr || instance->getClass() != m_class) {
        luaL_error(state, "no instance of %s", m_class->getFullName().text().c_str());
    }
    return value;
}

int ClassBinding::refuse(lua_State* state, const char* sentence) const {
    const char* name = luaL_tolstring(state, 2, nullptr);
    return luaL_error(state, sentence, m_class->getFullName().text().c_str(), name);
}

int ClassBinding::compare(lua_State* state) {
    current(state);
    const auto& equality = *static_cast<const OverloadSet*>(lua_touserdata(state, s_second));
    return guarded(state, [&] {
        const kaArray* const values[] = {Instances::find(state, 1), Instances::find(state, 2)};
        const bool areInstances = values[0] != nullptr && values[1] != nullptr;
        const RiboMethod* method = areInstances ? equality.find({values, 2}) : nullptr;
        lua_pushboolean(state, method && kaIsLogicalScalarTrue(method->call({values, 2}).get()));
        return 1;
    });
}

int ClassBinding::display(lua_State* state) {
    const ClassBinding& binding = current(state);
    return guarded(state, [&] {
        const kaArray* value = Instances::find(state, 1);
        const std::string text =
            value != nullptr ? ribo::display(value) : binding.m_class->getFullName().text();
        lua_pushlstring(state, text.data(), text.size());
        return 1;
    });
}

}  // namespace DOVA::console
