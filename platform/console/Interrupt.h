#pragma once

#include <csignal>
#include <lua.hpp>

namespace DOVA::console {

/// Has SIGINT interrupt what a Lua state runs, for as long as this lives: the first one raises an
/// error once, the second wherever the script goes on, the third is the signal's default effect.
/// May be nested; the innermost counts.
class Interrupt {
public:
    explicit Interrupt(lua_State* state);
    Interrupt(const Interrupt&) = delete;
    Interrupt& operator=(const Interrupt&) = delete;
    ~Interrupt();

private:
    static void onSignal(int);
    static void raiseOnce(lua_State* state, lua_Debug*);
    static void raiseAlways(lua_State* state, lua_Debug*);

    static lua_State* volatile s_state;
    static volatile std::sig_atomic_t s_count;

    lua_State* const m_outerState;
    const std::sig_atomic_t m_outerCount;
    struct sigaction m_outerAction;
};

}  // namespace DOVA::console
