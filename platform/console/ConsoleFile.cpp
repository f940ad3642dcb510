#include "ConsoleFile.h"

#include <sys/types.h>
#include <unistd.h>

#include <cstddef>
#include <cstdio>

#include "host/Console.h"

namespace DOVA::console {

namespace {

ssize_t print(void*, const char* bytes, std::size_t size) {
    host::printBuffered({bytes, size});
    return static_cast<ssize_t>(size);
}

ssize_t printError(void*, const char* bytes, std::size_t size) {
    flushConsoleFile();
    return static_cast<ssize_t>(std::fwrite(bytes, 1, size, stderr));
}

/// Null for want of memory.
std::FILE* open(cookie_write_function_t* write, int buffering) {
    std::FILE* file = ::fopencookie(nullptr, "w", {nullptr, write, nullptr, nullptr});
    if (file != nullptr) {
        std::setvbuf(file, nullptr, buffering, BUFSIZ);
    }
    return file;
}

// One for the process, like standard output, and never closed. A user at a terminal sees each
// text at once.
std::FILE* consoleFile() {
    static std::FILE* const s_file = open(print, ::isatty(STDOUT_FILENO) != 0 ? _IONBF : _IOFBF);
    return s_file;
}

void replace(lua_State* state, const char* name, std::FILE* file) {
    lua_getfield(state, -1, name);
    auto& stream = *static_cast<luaL_Stream*>(luaL_checkudata(state, -1, LUA_FILEHANDLE));
    stream.f = file != nullptr ? file : stream.f;
    lua_pop(state, 1);
}

}  // namespace

void sendOutputToConsole(lua_State* state) {
    static std::FILE* const s_errors = open(printError, _IONBF);
    lua_getglobal(state, LUA_IOLIBNAME);
    replace(state, "stdout", consoleFile());
    replace(state, "stderr", s_errors);
    lua_pop(state, 1);
    host::setConsoleBuffer(flushConsoleFile);
}

void flushConsoleFile() {
    if (std::FILE* file = consoleFile()) {
        std::fflush(file);
    }
}

}  // namespace DOVA::console
