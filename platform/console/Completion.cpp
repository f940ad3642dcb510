#include "Completion.h"

#include <algorithm>
#include <cctype>
#include <cstddef>

#include "ClassBinding.h"
#include "Instances.h"
#include "NamespaceBinding.h"

namespace DOVA::console {

namespace {

constexpr const char* s_keywords[] = {"and",   "break", "do",       "else", "elseif", "end",
                                      "false", "for",   "function", "goto", "if",     "in",
                                      "local", "nil",   "not",      "or",   "repeat", "return",
                                      "then",  "true",  "until",    "while"};

bool isInWord(char character) {
    return std::isalnum(static_cast<unsigned char>(character)) || character == '_' ||
           character == '.' || character == ':';
}

/// The end of the line that is names, dots and colons.
std::string_view lastWord(std::string_view line) {
    const auto begin = std::find_if_not(line.rbegin(), line.rend(), isInWord);
    return line.substr(static_cast<std::size_t>(line.rend() - begin));
}

bool isName(std::string_view text) {
    const auto isPart = [](unsigned char each) { return std::isalnum(each) || each == '_'; };
    return !text.empty() && !std::isdigit(static_cast<unsigned char>(text[0])) &&
           std::all_of(text.begin(), text.end(), isPart);
}

}  // namespace

std::vector<std::string> Completion::of(lua_State* state, std::string_view line) {
    Completion completion(line);
    const int top = lua_gettop(state);
    lua_pushcfunction(state, run);
    lua_pushlightuserdata(state, &completion);
    lua_pcall(state, 1, 0, 0);  // where something is missing there is nothing to offer
    lua_settop(state, top);
    auto& found = completion.m_candidates;
    std::sort(found.begin(), found.end());
    found.erase(std::unique(found.begin(), found.end()), found.end());
    return std::move(found);
}

Completion::Completion(std::string_view line) {
    const std::string_view word = lastWord(line);
    const std::size_t separator = word.find_last_of(".:");
    const std::size_t last = separator == word.npos ? 0 : separator + 1;
    m_before = word.substr(0, last);
    m_begun = word.substr(last);
    m_wantsMethods = last > 0 && word[separator] == ':';
    for (std::size_t begin = 0; begin < last;) {
        const std::size_t end = word.find_first_of(".:", begin);
        m_path.emplace_back(word.substr(begin, end - begin));
        begin = end + 1;
    }
}

int Completion::run(lua_State* state) {
    static_cast<Completion*>(lua_touserdata(state, 1))->collect(state);
    return 0;
}

void Completion::collect(lua_State* state) {
    if (m_path.empty()) {
        addGlobals(state);
    } else if (pushOwner(state)) {
        addMembers(state);
    }
}

bool Completion::pushOwner(lua_State* state) const {
    lua_pushglobaltable(state);
    lua_pushlstring(state, m_path[0].data(), m_path[0].size());
    if (lua_rawget(state, -2) == LUA_TNIL && !NamespaceBinding::pushTop(state, m_path[0])) {
        return false;
    }
    return std::all_of(m_path.begin() + 1, m_path.end(),
                       [&](const std::string& name) { return pushMember(state, name); });
}

/// Replaces the value on top by its member, as far as that runs no script.
bool Completion::pushMember(lua_State* state, const std::string& name) {
    if (lua_istable(state, -1)) {
        lua_pushlstring(state, name.data(), name.size());
        return lua_rawget(state, -2) != LUA_TNIL;
    }
    if (NamespaceBinding::members(state, -1).empty()) {
        return false;
    }
    lua_getfield(state, -1, name.c_str());
    return true;
}

void Completion::addGlobals(lua_State* state) {
    lua_pushglobaltable(state);
    addTable(state, -1, false, false);
    for (const std::string& name : NamespaceBinding::topNames()) {
        add(name);
    }
    for (const char* keyword : s_keywords) {
        add(keyword);
    }
}

void Completion::addMembers(lua_State* state) {
    if (lua_istable(state, -1)) {
        addTable(state, -1, m_wantsMethods, false);
    } else if (ClassBinding::pushMembers(state, -1)) {
        const bool isInstance = Instances::find(state, -2) != nullptr;
        addTable(state, -1, m_wantsMethods, isInstance && !m_wantsMethods);
    }
    for (const std::string& name : NamespaceBinding::members(state, -1)) {
        add(name);
    }
    if (luaL_getmetafield(state, -1, "__index") == LUA_TTABLE) {
        addTable(state, -1, m_wantsMethods, false);
    }
}

void Completion::addTable(lua_State* state, int index, bool onlyFunctions, bool onlyValues) {
    const int table = lua_absindex(state, index);
    for (lua_pushnil(state); lua_next(state, table) != 0; lua_pop(state, 1)) {
        const bool isFunction = lua_isfunction(state, -1);
        if (lua_type(state, -2) == LUA_TSTRING && !(isFunction ? onlyValues : onlyFunctions)) {
            std::size_t size = 0;
            const char* name = lua_tolstring(state, -2, &size);
            add({name, size});
        }
    }
}

void Completion::add(std::string_view name) {
    if (isName(name) && name.substr(0, m_begun.size()) == m_begun) {
        m_candidates.push_back(m_before + std::string(name));
    }
}

}  // namespace DOVA::console
