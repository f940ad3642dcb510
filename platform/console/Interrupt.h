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

    /// Whether a signal came that has raised no error: the script was over before it could.
    static bool isPending() { return s_isEnding || s_signals > s_answered; }

    /// Has everything that the script may still do, in its coroutines as well, fail with nil.
    static void endScript(lua_State* state);

    /// A coroutine that runs while this lives: a hook of Lua concerns one thread of it alone.
    class Coroutine {
    public:
        /// Null for none.
        explicit Coroutine(lua_State* coroutine);
        Coroutine(const Coroutine&) = delete;
        Coroutine& operator=(const Coroutine&) = delete;
        ~Coroutine();

    private:
        lua_State* const m_outer;
    };

private:
    static void onSignal(int);
    static void follow(lua_State* thread);
    static void arm(lua_State* thread);
    static void onHook(lua_State* thread, lua_Debug*);

    static lua_State* volatile s_running;
    static volatile std::sig_atomic_t s_signals;
    static std::sig_atomic_t s_answered;  ///< 0 or 1: more signals are never answered
    static bool s_isEnding;

    lua_State* const m_outerRunning;
    const std::sig_atomic_t m_outerSignals;
    const std::sig_atomic_t m_outerAnswered;
    const bool m_isOuterEnding;
    struct sigaction m_outerAction;
};

}  // namespace DOVA::console
