#pragma once

#include <lua.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace DOVA::console {

/// What the last word of a line may become. Runs no script and reads no property: it looks into
/// tables, and asks the host what its namespaces and classes have.
class Completion {
public:
    /// The candidates, sorted, each in place of the whole last word ("dova.web.JSONArray").
    static std::vector<std::string> of(lua_State* state, std::string_view line);

private:
    explicit Completion(std::string_view line);

    static int run(lua_State* state);
    void collect(lua_State* state);
    bool pushOwner(lua_State* state) const;
    static bool pushMember(lua_State* state, const std::string& name);
    void addGlobals(lua_State* state);
    void addMembers(lua_State* state);
    void addTable(lua_State* state, int index, bool onlyFunctions, bool onlyValues);
    void add(std::string_view name);

    std::vector<std::string> m_path;  ///< the words before the last one
    std::string m_before;             ///< those with their separators, as typed
    std::string m_begun;              ///< the last word so far
    bool m_wantsMethods = false;      ///< the last separator is a colon
    std::vector<std::string> m_candidates;
};

}  // namespace DOVA::console
