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

/// Runs scripts in Lua 5.4. Everything that the host's class-object system lists (namespaces,
/// functions, classes) is there as ordinary Lua values, made when a script first uses it; the
/// globals are the namespaces of the root, unless a script sets a global of that name.
///
/// What scripts print, or write to `io.stdout`, goes to the host's console, in order with what the
/// host prints. Standard libraries are those of the lua program, with two more differences:
/// `os.exit` ends the script, and `ScriptExit` tells the program; the program's own text is Lua
/// source, never compiled Lua.
///
/// While a script runs, Ctrl-C (SIGINT) makes it fail with "interrupted!", whatever the program
/// does with that signal otherwise. A script that swallows the error fails everywhere at the second
/// one; the third has its default effect, so that a script which waits outside Lua can be ended.
///
/// Main thread, like everything that scripts reach. All consoles must be gone before the process
/// ends; values that a script keeps may be gone with them only, long after the module they are
/// from.
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

    /// Runs Lua source, UTF-8. `name` stands for the text in error messages. Throws ScriptError and
    /// ScriptExit, as the following do.
    void run(std::string_view text, const std::string& name);
    /// The same with the arguments that were set; a byte order mark and a first line that begins
    /// with '#' are skipped.
    void runScript(std::string_view text, const std::string& name);
    /// Runs a file likewise. A file that cannot be read is a
    /// ScriptError of one line.
    void runFile(const std::filesystem::path& path);
    /// Runs what a user entered, which errors call "stdin". The values of an expression are
    /// printed.
    void enter(std::string_view text);

    /// Whether the text is the beginning of something: more lines may make it right.
    bool isIncomplete(std::string_view text) const;

    /// What the end of a line may become: every name that can stand there, with what stands before
    /// it ("dova.web.JSONArray" for "dova.we", ...), sorted. Words of Lua and globals; after a dot
    /// the members of tables, namespaces, classes and the properties of instances; after a colon
    /// methods. Runs no script and reads no property.
    std::vector<std::string> complete(std::string_view line) const;

private:
    class Implementation;
    std::unique_ptr<Implementation> m_implementation;
};

}  // namespace DOVA::console
