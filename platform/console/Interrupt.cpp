#include "Interrupt.h"

namespace DOVA::console {

lua_State* volatile Interrupt::s_state = nullptr;
volatile std::sig_atomic_t Interrupt::s_count = 0;

Interrupt::Interrupt(lua_State* state)
    : m_outerState(s_state), m_outerCount(s_count), m_outerAction{} {
    s_state = state;
    s_count = 0;
    struct sigaction action {};
    action.sa_handler = onSignal;  // without SA_RESTART: a read that waits for a person ends, too
    sigaction(SIGINT, &action, &m_outerAction);
}

Interrupt::~Interrupt() {
    sigaction(SIGINT, &m_outerAction, nullptr);
    lua_sethook(s_state, nullptr, 0, 0);
    s_state = m_outerState;
    s_count = m_outerCount;
}

void Interrupt::onSignal(int) {
    s_count = s_count + 1;
    if (s_count > 2) {
        std::signal(SIGINT, SIG_DFL);
        std::raise(SIGINT);
        return;
    }
    lua_sethook(s_state, s_count == 1 ? raiseOnce : raiseAlways, LUA_MASKCOUNT, 1);
}

void Interrupt::raiseOnce(lua_State* state, lua_Debug* call) {
    lua_sethook(state, nullptr, 0, 0);
    raiseAlways(state, call);
}

void Interrupt::raiseAlways(lua_State* state, lua_Debug*) {
    luaL_where(state, 0);
    lua_pushliteral(state, "interrupted!");
    lua_concat(state, 2);
    lua_error(state);
}

}  // namespace DOVA::console
