#pragma once

#include <boost/container/small_vector.hpp>
#include <lua.hpp>

#include "host/Array.h"
#include "host/ribo/factory/RiboMethod.h"

namespace DOVA::console {

/// The Lua value at `index` as a value of the host: nil is an empty double, a boolean a logical, a
/// number a double, a text (UTF-8) a character row, a table with the keys 1 to n a row of cells,
/// one with texts for keys a struct whose fields are sorted, an instance the object itself. Raises
/// a Lua error for everything else and for tables in more than 100 levels, hence also for one that
/// holds itself.
host::ArrayPointer toHost(lua_State* state, int index);

/// The arguments of a call from Lua, for its time: instances are borrowed from their Lua values,
/// everything else is made. Texts are counted as memory of the host, which may keep them.
class CallArguments {
public:
    /// Those from `first` on to the top of the stack.
    CallArguments(lua_State* state, int first);
    CallArguments(const CallArguments&) = delete;
    CallArguments& operator=(const CallArguments&) = delete;

    ribo::factory::Arguments get() const { return {m_values.data(), m_values.size()}; }

private:
    boost::container::small_vector<const kaArray*, 4> m_values;
    boost::container::small_vector<host::ArrayPointer, 4> m_made;
};

}  // namespace DOVA::console
