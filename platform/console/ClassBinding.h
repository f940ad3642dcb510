#pragma once

#include <deque>
#include <lua.hpp>

#include "host/ribo/COSClassInfo.h"
#include "host/ribo/OverloadSet.h"

namespace DOVA::console {

/// What Lua needs of a class: a value for the class itself (called, it constructs; its members are
/// static methods and constants) and the metatable of its instances (methods, properties, "==",
/// tostring). Made when a script first meets the class, and kept for as long as Lua holds the class
/// value, an instance, or one of their methods.
class ClassBinding {
public:
    static void pushClass(lua_State* state, const ribo::ClassPointer& described);
    static void pushInstanceMetatable(lua_State* state, const ribo::ClassPointer& described);

    /// Pushes the table of the visible members, by name, of the class value or instance at `index`:
    /// functions for methods, other values for properties. Pushes nothing and gives false when it
    /// is neither.
    static bool pushMembers(lua_State* state, int index);

private:
    explicit ClassBinding(ribo::ClassPointer described);

    /// Whose members: those of the class itself, or those of its instances.
    enum class Side { Class = 1, Instance = 2 };

    // A binding is a Lua value, too, which the functions made for it hold. Its user values: the
    // class value, and the metatable of instances.
    static void push(lua_State* state, const ribo::ClassPointer& described, Side side);
    static void build(lua_State* state, const ribo::ClassPointer& described);
    static int destroy(lua_State* state);
    /// The binding that the running function was made for.
    static ClassBinding& current(lua_State* state);

    // All for the metatable on top of the stack, or leaving a value there; the binding's Lua value
    // is at `binding`.
    void pushMetatable(lua_State* state, int binding, Side side);
    void pushMembers(lua_State* state, int binding, Side side);
    void addMethods(lua_State* state, int binding, Side side);
    void addProperties(lua_State* state, Side side) const;
    void addConstructor(lua_State* state, int binding);
    void addEquality(lua_State* state, int binding);
    const ribo::OverloadSet* visible(const ribo::OverloadSet* methods, bool areStatic);

    static int callMethod(lua_State* state);
    static int construct(lua_State* state);
    static int read(lua_State* state);
    static int write(lua_State* state);
    static int compare(lua_State* state);
    static int display(lua_State* state);
    const kaArray* ownInstance(lua_State* state) const;
    int readProperty(lua_State* state, const ribo::factory::RiboProperty& property) const;
    int refuse(lua_State* state, const char* sentence) const;

    const ribo::ClassPointer m_class;
    std::deque<ribo::OverloadSet> m_overloads;
};

}  // namespace DOVA::console
