#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "console/Export.h"
#include "console/ScriptError.h"
#include "console/ScriptExit.h"

namespace DOVA::console {

/// Runs scripts in Lua 5.4. What the host's class-object system lists (namespaces, functions,
/// classes) is there as ordinary Lua values, made when a script first uses them. The top namespaces
/// are globals, unless a script sets a global of that name.
///
/// What scripts print, or write to `io.stdout`, goes to the host's console, in order with what the
/// host prints. The standard libraries are those of the lua program, but `os.exit` ends the script,
/// and the operation that ran it throws ScriptExit. A text to run is Lua source, never compiled
/// Lua.
///
/// While a script runs, Ctrl-C (SIGINT) makes it fail with "interrupted!", whatever the program
/// does with that signal otherwise. When the script catches that error, the second Ctrl-C makes all
/// of it fail. The third has the signal's default effect, for a script that waits outside Lua.
///
/// Main thread, like everything that scripts reach. Destroy every console before the process ends.
/// Values that a script keeps may live as long as the console, longer than their module.
class DOVA_CONSOLE_EXPORT ScriptConsole {
public:
    /// A console with nothing but the libraries and the host's namespaces. Throws std::bad_alloc.
    ScriptConsole();
    ScriptConsole(const ScriptConsole&) = delete;
    ScriptConsole& operator=(const ScriptConsole&) = delete;
    /// Frees every value that scripts have made; their finalisers run.
    ~ScriptConsole();

    /// Sets the global `arg`: the script's name at 0, its arguments from 1 on.
    void setArguments(const std::string& script, const std::vector<std::string>& arguments);

    /// Runs Lua source in UTF-8. Error messages call the text `name`. Throws ScriptError and
    /// ScriptExit, as the next three do.
    void run(std::string_view text, const std::string& name);
    /// The same, with the arguments that were set, and without a byte order mark and a first line
    /// that begins with '#'.
    void runScript(std::string_view text, const std::string& name);
    /// As runScript(), for a file. One that cannot be read gives a ScriptError of one line.
    void runFile(const std::filesystem::path& path);
    /// Runs what a user entered, which error messages call "stdin". Prints the values of an
    /// expression.
    void enter(std::string_view text);

    /// Whether the text is incomplete Lua, which more lines may complete.
    bool isIncomplete(std::string_view text) const;

    /// How the last name of a line may go on: each name that begins so, with what stands before it
    /// ("dova.web" for "dova.we"), sorted. These are words of Lua and globals; after a dot the
    /// members of tables, namespaces and classes, and the properties of instances; after a colon
    /// the methods. Runs no script and reads no property.
    std::vector<std::string> complete(std::string_view line) const;

private:
    class Implementation;
    std::unique_ptr<Implementation> m_implementation;
};

}  // namespace DOVA::console
