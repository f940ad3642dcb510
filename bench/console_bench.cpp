// A method call from a script, as a ratio to a call of a plain Lua C function on a userdata, which
// checks its argument and gives a boolean, too. Each measures a loop in Lua.

#include <benchmark/benchmark.h>

#include <lua.hpp>
#include <stdexcept>
#include <string>

#include "console/ScriptConsole.h"
#include "core/ModuleEntry.h"

namespace {

constexpr int s_calls = 10000;

std::string loop(const char* call) {
    return "local a = a for i = 1, " + std::to_string(s_calls) + " do " + call + " end";
}

int isEmpty(lua_State* state) {
    luaL_checkudata(state, 1, "plain");
    lua_pushboolean(state, true);
    return 1;
}

/// A Lua state with a userdata "a" that has one method.
class PlainLua {
public:
    PlainLua() {
        const luaL_Reg methods[] = {{"isEmpty", isEmpty}, {nullptr, nullptr}};
        lua_newuserdatauv(m_state, 8, 0);
        luaL_newmetatable(m_state, "plain");
        luaL_newlib(m_state, methods);
        lua_setfield(m_state, -2, "__index");
        lua_setmetatable(m_state, -2);
        lua_setglobal(m_state, "a");
    }
    ~PlainLua() { lua_close(m_state); }
    PlainLua(const PlainLua&) = delete;
    PlainLua& operator=(const PlainLua&) = delete;

    void run(const std::string& text) {
        if (luaL_dostring(m_state, text.c_str())) {
            throw std::runtime_error(lua_tostring(m_state, -1));
        }
    }

private:
    lua_State* const m_state = luaL_newstate();
};

void plainCall(benchmark::State& state) {
    PlainLua lua;
    const std::string text = loop("a:isEmpty()");
    for (auto _ : state) {
        lua.run(text);
    }
    state.SetItemsProcessed(state.iterations() * s_calls);
}
BENCHMARK(plainCall);

void hostCall(benchmark::State& state, const char* call) {
    initialize_dova2_web();
    DOVA::console::ScriptConsole console;
    console.run("a = dova.web.JSONArray.fromJSON('[1, 2, 3]')", "bench");
    const std::string text = loop(call);
    for (auto _ : state) {
        console.run(text, "bench");
    }
    state.SetItemsProcessed(state.iterations() * s_calls);
}
BENCHMARK_CAPTURE(hostCall, method, "a:isEmpty()");
BENCHMARK_CAPTURE(hostCall, property, "local n = a.Length");
BENCHMARK_CAPTURE(hostCall, overloaded, "a:replace(1, true)");

}  // namespace
