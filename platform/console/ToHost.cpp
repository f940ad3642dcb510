#include "ToHost.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "HostErrors.h"
#include "HostMemory.h"
#include "Instances.h"
#include "host/Utf8.h"

namespace DOVA::console {

namespace {

constexpr int s_deepest = 100;
// What the host makes of a text is at most so many times as large as its characters: an array of
// digits takes sixteen bytes for each two of them.
constexpr std::size_t s_bytesOfCharacter = 8;

host::ArrayPointer convert(lua_State* state, int index, int level);

std::u16string textAt(lua_State* state, int index) {
    std::size_t size = 0;
    const char* bytes = lua_tolstring(state, index, &size);
    return host::fromUtf8({bytes, size});
}

/// The values for a function of the host that takes them over if it succeeds.
std::vector<kaArray*> borrowed(const std::vector<host::ArrayPointer>& values) {
    std::vector<kaArray*> result(values.size());
    std::transform(values.begin(), values.end(), result.begin(),
                   [](const host::ArrayPointer& value) { return value.get(); });
    return result;
}

host::ArrayPointer takenOver(kaArray* made, std::vector<host::ArrayPointer>& values) {
    for (host::ArrayPointer& value : values) {
        static_cast<void>(value.release());
    }
    return host::ArrayPointer(made);
}

host::ArrayPointer cells(lua_State* state, int index, std::size_t count, int level) {
    std::vector<host::ArrayPointer> values(count);
    for (std::size_t place = 0; place < count; ++place) {
        lua_rawgeti(state, index, static_cast<lua_Integer>(place) + 1);
        values[place] = convert(state, lua_gettop(state), level + 1);
        lua_pop(state, 1);
    }
    return takenOver(kaCreateCellMatrix(count == 0 ? 0 : 1, count, borrowed(values).data()),
                     values);
}

using Fields = std::vector<std::pair<std::u16string, host::ArrayPointer>>;

host::ArrayPointer structOf(Fields& fields) {
    std::sort(fields.begin(), fields.end(),
              [](const auto& left, const auto& right) { return left.first < right.first; });
    std::vector<std::u16string_view> names;
    std::vector<host::ArrayPointer> values;
    for (auto& field : fields) {
        names.push_back(field.first);
        values.push_back(std::move(field.second));
    }
    return takenOver(kaCreateStructScalar(names.size(), names.data(), borrowed(values).data()),
                     values);
}

host::ArrayPointer fieldsOf(lua_State* state, int index, int level) {
    Fields fields;
    for (lua_pushnil(state); lua_next(state, index) != 0; lua_pop(state, 1)) {
        // A number must not be asked for as a text: that would change the key.
        if (lua_type(state, -2) != LUA_TSTRING) {
            raise(state, "a table for the host has the keys 1 to n, or strings for keys");
        }
        std::u16string name = textAt(state, -2);
        fields.emplace_back(std::move(name), convert(state, lua_gettop(state), level + 1));
    }
    return structOf(fields);
}

/// Whether the keys are 1 to `count` and nothing else.
bool isList(lua_State* state, int index, std::size_t count) {
    std::size_t places = 0;
    bool onlyPlaces = true;
    for (lua_pushnil(state); lua_next(state, index) != 0; lua_pop(state, 1)) {
        const lua_Integer place = lua_isinteger(state, -2) ? lua_tointeger(state, -2) : 0;
        onlyPlaces &= place >= 1 && static_cast<std::size_t>(place) <= count;
        ++places;
    }
    return onlyPlaces && places == count;
}

host::ArrayPointer convertTable(lua_State* state, int index, int level) {
    if (level == s_deepest) {
        luaL_error(state, "a table for the host has more than %d levels, or holds itself",
                   s_deepest);
    }
    luaL_checkstack(state, 8, "too many levels of tables");
    const std::size_t count = lua_rawlen(state, index);
    return isList(state, index, count) ? cells(state, index, count, level)
                                       : fieldsOf(state, index, level);
}

host::ArrayPointer convertUserdata(lua_State* state, int index) {
    if (const kaArray* object = Instances::find(state, index)) {
        return host::ArrayPointer(kaCreateObject(kaShareObject(object)));
    }
    const std::string shown = luaL_tolstring(state, index, nullptr);
    raise(state, shown + " cannot be given to the host");
    return nullptr;
}

host::ArrayPointer convert(lua_State* state, int index, int level) {
    switch (lua_type(state, index)) {
        case LUA_TNIL:
            return host::ArrayPointer(kaCreateDoubleMatrix(0, 0, nullptr));
        case LUA_TBOOLEAN:
            return host::ArrayPointer(kaCreateLogicalScalar(lua_toboolean(state, index) != 0));
        case LUA_TNUMBER:
            return host::ArrayPointer(kaCreateDoubleScalar(lua_tonumber(state, index)));
        case LUA_TSTRING:
            return host::ArrayPointer(kaAdoptString(textAt(state, index)));
        case LUA_TTABLE:
            return convertTable(state, index, level);
        case LUA_TUSERDATA:
            return convertUserdata(state, index);
        default:
            raise(state,
                  std::string("a ") + luaL_typename(state, index) + " cannot be given to the host");
            return nullptr;
    }
}

}  // namespace

host::ArrayPointer toHost(lua_State* state, int index) {
    return convert(state, lua_absindex(state, index), 0);
}

CallArguments::CallArguments(lua_State* state, int first) {
    const int last = lua_gettop(state);
    std::size_t characters = 0;
    for (int index = first; index <= last; ++index) {
        characters += lua_type(state, index) == LUA_TSTRING ? lua_rawlen(state, index) : 0;
    }
    // Before the call, and its values: what an earlier one made may go first.
    countHostMemory(state, characters * s_bytesOfCharacter);
    for (int index = first; index <= last; ++index) {
        if (const kaArray* object = Instances::find(state, index)) {
            m_values.push_back(object);
        } else {
            m_made.push_back(toHost(state, index));
            m_values.push_back(m_made.back().get());
        }
    }
}

}  // namespace DOVA::console
