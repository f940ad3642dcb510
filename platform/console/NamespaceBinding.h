#pragma once

#include <cstdint>
#include <lua.hpp>
#include <string>
#include <vector>

#include "host/ribo/COSNamespace.h"

namespace DOVA::console {

/// The host's namespaces as Lua values whose members are looked up when a script uses them: a
/// member that comes appears, one that goes disappears, and what a script kept of it says so.
class NamespaceBinding {
public:
    /// Makes the namespaces at the top globals, behind those that scripts set.
    static void addToGlobals(lua_State* state);

    /// The visible members of the namespace at `index`; empty for everything else.
    static std::vector<std::string> members(lua_State* state, int index);

    /// The names of the namespaces at the top.
    static std::vector<std::string> topNames();
    /// Pushes the namespace at the top of that name; gives false and pushes nil if there is none.
    static bool pushTop(lua_State* state, const std::string& name);

private:
    /// A namespace by name: the object may go at any time.
    struct Place {
        ribo::InternedString fullName;
        std::uint64_t generation = 0;
        ribo::COSNamespace* found = nullptr;

        ribo::COSNamespace* get();
    };
    /// A function of a namespace, likewise.
    struct Function {
        Place place;
        ribo::InternedString name;
        std::uint64_t generation = 0;
        const ribo::OverloadSet* found = nullptr;

        const ribo::OverloadSet& get();
    };

    static void push(lua_State* state, ribo::InternedString fullName);
    static bool pushFound(lua_State* state, ribo::COSNamespace& space, ribo::InternedString name);
    static void pushFunction(lua_State* state, Function function);
    static Place* placeAt(lua_State* state, int index);

    static void pushReader(lua_State* state);
    static int setMetatable(lua_State* state);
    static int readGlobal(lua_State* state);
    static int readGlobalOrElse(lua_State* state);
    static int read(lua_State* state);
    static int refuseWrite(lua_State* state);
    static int display(lua_State* state);
    static int call(lua_State* state);
};

}  // namespace DOVA::console
