#include "console/ScriptConsole.h"

#include <algorithm>
#include <functional>
#include <lua.hpp>
#include <new>
#include <optional>
#include <utility>

#include "Completion.h"
#include "ConsoleFile.h"
#include "Interrupt.h"
#include "Libraries.h"
#include "NamespaceBinding.h"

namespace DOVA::console {

namespace {

constexpr const char* s_entered = "=stdin";

struct StateCloser {
    void operator()(lua_State* state) const {
        lua_close(state);
        flushConsoleFile();  // finalisers may have written
    }
};

std::string textAt(lua_State* state, int index) {
    std::size_t size = 0;
    const char* text = luaL_tolstring(state, index, &size);
    std::string result(text, size);
    lua_pop(state, 1);
    return result;
}

/// What an error value says to a user.
std::string messageAt(lua_State* state, int index) {
    if (lua_isstring(state, index) || luaL_getmetafield(state, index, "__tostring") != LUA_TNIL) {
        return textAt(state, index);
    }
    return std::string("(the error is a ") + luaL_typename(state, index) + " value)";
}

/// What went wrong, noted where it did.
struct Failure {
    std::string message;
    std::string traceback;
};

/// Lua calls it with the error while the failed calls still stand.
int noteFailure(lua_State* state) {
    auto& failure = *static_cast<Failure*>(lua_touserdata(state, lua_upvalueindex(1)));
    failure.message = messageAt(state, 1);
    luaL_traceback(state, state, nullptr, 1);
    failure.traceback = textAt(state, -1);
    return 1;
}

/// The error value after a failed call, where nothing may fail any more.
std::string remainingMessage(lua_State* state) {
    return lua_isstring(state, -1) ? lua_tostring(state, -1)
                                   : "an error in the handling of an error";
}

/// Calls what scripts know as `print`.
int printAll(lua_State* state) {
    luaL_checkstack(state, 1, "too many results to print");
    lua_getglobal(state, "print");
    lua_insert(state, 1);
    lua_call(state, lua_gettop(state) - 1, 0);
    return 0;
}

}  // namespace

class ScriptConsole::Implementation {
public:
    Implementation();

    lua_State* state() { return m_state.get(); }
    int load(std::string_view text, const char* name);
    [[noreturn]] void refuse();
    void callOnTop(int argumentCount, int resultCount);
    int pushArguments();
    void printResults(int first);

private:
    static int prepare(lua_State* state);

    std::optional<int> m_exitCode;
    const std::function<void(int)> m_onExit = [this](int exitCode) { m_exitCode = exitCode; };
    std::unique_ptr<lua_State, StateCloser> m_state{luaL_newstate()};
};

ScriptConsole::Implementation::Implementation() {
    if (m_state == nullptr) {
        throw std::bad_alloc();
    }
    lua_pushcfunction(state(), prepare);
    lua_pushlightuserdata(state(), this);
    if (lua_pcall(state(), 1, 0, 0) != LUA_OK) {
        throw std::bad_alloc();  // nothing else can be missing
    }
}

int ScriptConsole::Implementation::prepare(lua_State* state) {
    auto* self = static_cast<Implementation*>(lua_touserdata(state, 1));
    openLibraries(state, self->m_onExit);
    NamespaceBinding::addToGlobals(state);
    return 0;
}

int ScriptConsole::Implementation::load(std::string_view text, const char* name) {
    return luaL_loadbufferx(state(), text.data(), text.size(), name, "t");
}

/// Throws the error that is on top of the stack.
void ScriptConsole::Implementation::refuse() {
    const std::string message = textAt(state(), -1);
    lua_pop(state(), 1);
    throw ScriptError(message);
}

/// Pushes what `arg` has from 1 on, and says how many that are. Looks at the table alone: what a
/// script may have attached to it must not run here.
int ScriptConsole::Implementation::pushArguments() {
    lua_pushglobaltable(state());
    lua_pushliteral(state(), "arg");
    lua_rawget(state(), -2);
    lua_remove(state(), -2);
    const int arguments = lua_gettop(state());
    const int count =
        lua_istable(state(), arguments) ? static_cast<int>(lua_rawlen(state(), arguments)) : 0;
    luaL_checkstack(state(), count + 3, "too many arguments");
    for (int index = 1; index <= count; ++index) {
        lua_rawgeti(state(), arguments, index);
    }
    lua_remove(state(), arguments);
    return count;
}

void ScriptConsole::Implementation::printResults(int first) {
    const int count = lua_gettop(state()) - first + 1;
    if (count == 0) {
        return;
    }
    lua_pushcfunction(state(), printAll);
    lua_insert(state(), first);
    callOnTop(count, 0);
}

/// Calls the function below its arguments on top of the stack; takes them away in any case.
void ScriptConsole::Implementation::callOnTop(int argumentCount, int resultCount) {
    Failure failure;
    const int function = lua_gettop(state()) - argumentCount;
    lua_pushlightuserdata(state(), &failure);
    lua_pushcclosure(state(), noteFailure, 1);
    lua_insert(state(), function);
    int status = LUA_OK;
    bool isInterrupted = false;
    {
        const Interrupt interrupt(state());
        status = lua_pcall(state(), argumentCount, resultCount, function);
        flushConsoleFile();
        isInterrupted = status == LUA_OK && Interrupt::isPending();
    }
    lua_remove(state(), function);
    if (status != LUA_OK && failure.message.empty()) {
        failure.message = remainingMessage(state());  // for want of memory nothing was noted
    }
    if (const std::optional<int> exitCode = std::exchange(m_exitCode, std::nullopt)) {
        lua_settop(state(), function - 1);
        throw ScriptExit{*exitCode};
    }
    if (status != LUA_OK || isInterrupted) {
        lua_settop(state(), function - 1);
        throw isInterrupted ? ScriptError("interrupted!")
                            : ScriptError(failure.message, failure.traceback);
    }
}

ScriptConsole::ScriptConsole() : m_implementation(std::make_unique<Implementation>()) {}

ScriptConsole::~ScriptConsole() = default;

void ScriptConsole::setArguments(const std::string& script,
                                 const std::vector<std::string>& arguments) {
    lua_State* const state = m_implementation->state();
    lua_pushglobaltable(state);
    lua_pushliteral(state, "arg");
    lua_newtable(state);
    lua_pushlstring(state, script.data(), script.size());
    lua_rawseti(state, -2, 0);
    lua_Integer index = 0;
    for (const std::string& argument : arguments) {
        lua_pushlstring(state, argument.data(), argument.size());
        lua_rawseti(state, -2, ++index);
    }
    lua_rawset(state, -3);
    lua_pop(state, 1);
}

void ScriptConsole::run(std::string_view text, const std::string& name) {
    if (m_implementation->load(text, ("=" + name).c_str()) != LUA_OK) {
        m_implementation->refuse();
    }
    m_implementation->callOnTop(0, 0);
}

void ScriptConsole::runScript(std::string_view text, const std::string& name) {
    constexpr std::string_view mark = "\xef\xbb\xbf";
    text.remove_prefix(text.substr(0, mark.size()) == mark ? mark.size() : 0);
    if (!text.empty() && text[0] == '#') {
        text.remove_prefix(std::min(text.find('\n'), text.size()));  // the line break still counts
    }
    if (m_implementation->load(text, ("=" + name).c_str()) != LUA_OK) {
        m_implementation->refuse();
    }
    m_implementation->callOnTop(m_implementation->pushArguments(), 0);
}

void ScriptConsole::runFile(const std::filesystem::path& path) {
    if (luaL_loadfilex(m_implementation->state(), path.c_str(), "t") != LUA_OK) {
        m_implementation->refuse();
    }
    m_implementation->callOnTop(m_implementation->pushArguments(), 0);
}

void ScriptConsole::enter(std::string_view text) {
    const int before = lua_gettop(m_implementation->state());
    if (m_implementation->load("return " + std::string(text), s_entered) != LUA_OK) {
        lua_pop(m_implementation->state(), 1);
        if (m_implementation->load(text, s_entered) != LUA_OK) {
            m_implementation->refuse();
        }
    }
    m_implementation->callOnTop(0, LUA_MULTRET);
    m_implementation->printResults(before + 1);
}

bool ScriptConsole::isIncomplete(std::string_view text) const {
    int status = m_implementation->load("return " + std::string(text), s_entered);
    if (status != LUA_OK) {
        lua_pop(m_implementation->state(), 1);
        status = m_implementation->load(text, s_entered);
    }
    const std::string message =
        status == LUA_ERRSYNTAX ? textAt(m_implementation->state(), -1) : std::string();
    lua_pop(m_implementation->state(), 1);
    // The compiler says so itself when it ran out of text.
    constexpr std::string_view atTheEnd = "<eof>";
    return message.size() >= atTheEnd.size() &&
           message.compare(message.size() - atTheEnd.size(), atTheEnd.size(), atTheEnd) == 0;
}

std::vector<std::string> ScriptConsole::complete(std::string_view line) const {
    return Completion::of(m_implementation->state(), line);
}

}  // namespace DOVA::console
