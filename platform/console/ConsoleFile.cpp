#include "ConsoleFile.h"

#include <sys/types.h>

#include <cstddef>
#include <cstdio>

#include "host/Console.h"

namespace DOVA::console {

namespace {

ssize_t write(void*, const char* bytes, std::size_t size) {
    host::printText({bytes, size});
    return static_cast<ssize_t>(size);
}

/// Null for want of memory.
std::FILE* openConsole() {
    std::FILE* file = ::fopencookie(nullptr, "w", {nullptr, write, nullptr, nullptr});
    if (file != nullptr) {
        std::setvbuf(file, nullptr, _IONBF, 0);
    }
    return file;
}

}  // namespace

void sendOutputToConsole(lua_State* state) {
    // One for the process, like standard output, and never closed.
    static std::FILE* const s_console = openConsole();
    lua_getglobal(state, LUA_IOLIBNAME);
    lua_getfield(state, -1, "stdout");
    auto& output = *static_cast<luaL_Stream*>(luaL_checkudata(state, -1, LUA_FILEHANDLE));
    output.f = s_console != nullptr ? s_console : output.f;
    lua_pop(state, 2);
}

}  // namespace DOVA::console
