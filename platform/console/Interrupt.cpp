#include "Interrupt.h"

namespace DOVA::console {

lua_State* volatile Interrupt::s_running = nullptr;
volatile std::sig_atomic_t Interrupt::s_signals = 0;
std::sig_atomic_t Interrupt::s_answered = 0;
bool Interrupt::s_isEnding = false;

Interrupt::Interrupt(lua_State* state)
    : m_outerRunning(s_running),
      m_outerSignals(s_signals),
      m_outerAnswered(s_answered),
      m_isOuterEnding(s_isEnding),
      m_outerAction{} {
    s_running = state;
    s_signals = 0;
    s_answered = 0;
    s_isEnding = false;
    struct sigaction action {};
    action.sa_handler = onSignal;  // without SA_RESTART: a read that waits for a user ends, too
    sigaction(SIGINT, &action, &m_outerAction);
}

Interrupt::~Interrupt() {
    sigaction(SIGINT, &m_outerAction, nullptr);
    lua_sethook(s_running, nullptr, 0, 0);
    s_running = m_outerRunning;
    s_signals = m_outerSignals;
    s_answered = m_outerAnswered;
    s_isEnding = m_isOuterEnding;
}

Interrupt::Coroutine::Coroutine(lua_State* coroutine) : m_outer(s_running) {
    if (coroutine != nullptr) {
        follow(coroutine);
    }
}

Interrupt::Coroutine::~Coroutine() {
    follow(m_outer);
}

void Interrupt::endScript(lua_State* state) {
    s_isEnding = true;
    arm(state);
}

void Interrupt::onSignal(int) {
    s_signals = s_signals + 1;
    if (s_signals > 2) {
        std::signal(SIGINT, SIG_DFL);
        std::raise(SIGINT);
        return;
    }
    arm(s_running);
}

/// What is wanted may have come when the thread that ran before had no instruction left.
void Interrupt::follow(lua_State* thread) {
    s_running = thread;
    if (thread != nullptr && isPending()) {
        arm(thread);
    }
}

void Interrupt::arm(lua_State* thread) {
    lua_sethook(thread, onHook, LUA_MASKCOUNT, 1);
}

void Interrupt::onHook(lua_State* thread, lua_Debug*) {
    lua_sethook(thread, nullptr, 0, 0);
    if (s_isEnding || s_signals > 1) {  // the second signal may have come just now
        arm(thread);
    }
    if (s_isEnding) {
        lua_pushnil(thread);
        lua_error(thread);
    }
    if (isPending()) {
        s_answered = 1;
        luaL_where(thread, 0);
        lua_pushliteral(thread, "interrupted!");
        lua_concat(thread, 2);
        lua_error(thread);
    }
}

}  // namespace DOVA::console
