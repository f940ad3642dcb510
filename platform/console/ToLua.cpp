#include "ToLua.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <utility>

#include "Instances.h"
#include "host/Utf8.h"

namespace DOVA::console {

namespace {

constexpr int s_deepest = 100;
// Up to here a double knows every whole number.
constexpr double s_largestWhole = 9007199254740992.0;

void push(lua_State* state, const kaArray* value, int level);

void pushText(lua_State* state, std::u16string_view text) {
    const std::string bytes = host::toUtf8(text);
    lua_pushlstring(state, bytes.data(), bytes.size());
}

void pushNumber(lua_State* state, double number) {
    const bool isWhole = std::abs(number) <= s_largestWhole && number == std::trunc(number);
    if (isWhole && !(number == 0 && std::signbit(number))) {
        lua_pushinteger(state, static_cast<lua_Integer>(number));
    } else {
        lua_pushnumber(state, number);
    }
}

void pushUInt64(lua_State* state, std::uint64_t number) {
    if (number <= static_cast<std::uint64_t>(std::numeric_limits<lua_Integer>::max())) {
        lua_pushinteger(state, static_cast<lua_Integer>(number));
    } else {
        lua_pushnumber(state, static_cast<lua_Number>(number));
    }
}

void pushScalar(lua_State* state, const kaArray* value) {
    switch (kaGetClassID(value)) {
        case kaClassID::Logical:
            return lua_pushboolean(state, kaIsLogicalScalarTrue(value));
        case kaClassID::UInt64:
            return pushUInt64(state, kaGetUInt64Scalar(value));
        default:
            return pushNumber(state, kaGetScalar(value));
    }
}

/// Pushes a table of what `pushElement` pushes for 0 to count - 1.
template <class PushElement>
void pushList(lua_State* state, std::size_t count, const PushElement& pushElement) {
    lua_newtable(state);
    for (std::size_t index = 0; index < count; ++index) {
        pushElement(index);
        lua_rawseti(state, -2, static_cast<lua_Integer>(index) + 1);
    }
}

void pushMatrix(lua_State* state, const kaArray* value) {
    const bool isLogical = kaGetClassID(value) == kaClassID::Logical;
    pushList(state, kaGetNumberOfElements(value), [&](std::size_t index) {
        const double number = kaGetElement(value, index);
        isLogical ? lua_pushboolean(state, number != 0) : pushNumber(state, number);
    });
}

void pushNumeric(lua_State* state, const kaArray* value) {
    if (matrix::isScalar(value)) {
        pushScalar(state, value);
    } else if (kaGetClassID(value) == kaClassID::Double && matrix::isEmpty(value)) {
        lua_pushnil(state);
    } else {
        pushMatrix(state, value);
    }
}

void pushStruct(lua_State* state, const kaArray* value, int level) {
    lua_newtable(state);
    for (const std::u16string& name : kaGetFieldNames(value)) {
        pushText(state, name);
        push(state, kaGetField(value, name), level + 1);
        lua_rawset(state, -3);
    }
}

void push(lua_State* state, const kaArray* value, int level) {
    if (level > s_deepest) {
        luaL_error(state, "the value has more than %d levels", s_deepest);
    }
    luaL_checkstack(state, 8, "the value has too many levels");
    switch (kaGetClassID(value)) {
        case kaClassID::Char:
            return pushText(state, kaViewString(value));
        case kaClassID::Cell:
            return pushList(state, kaGetNumberOfElements(value), [&](std::size_t index) {
                push(state, kaGetCell(value, index), level + 1);
            });
        case kaClassID::Struct:
            return pushStruct(state, value, level);
        case kaClassID::Object:
            return Instances::push(state, host::ArrayPointer(kaCreateObject(kaShareObject(value))));
        default:
            return pushNumeric(state, value);
    }
}

}  // namespace

void pushValue(lua_State* state, host::ArrayPointer value) {
    if (kaIsLogicalScalar(value.get())) {
        lua_pushboolean(state, kaIsLogicalScalarTrue(value.get()));
    } else if (kaGetClassID(value.get()) == kaClassID::Object) {
        Instances::push(state, std::move(value));
    } else {
        push(state, value.get(), 0);
    }
}

}  // namespace DOVA::console
