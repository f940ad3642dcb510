#include "HostMemory.h"

#include <algorithm>
#include <limits>

namespace DOVA::console {

namespace {

// Less is not worth a call of the collector.
constexpr std::size_t s_step = 64 * 1024;

std::size_t s_uncounted = 0;

}  // namespace

void countHostMemory(lua_State* state, std::size_t bytes) {
    s_uncounted += bytes;
    if (s_uncounted >= s_step && lua_gc(state, LUA_GCISRUNNING) != 0) {
        constexpr std::size_t most = std::numeric_limits<int>::max();
        const auto kilobytes = static_cast<int>(std::min(s_uncounted / 1024, most));
        s_uncounted = 0;
        lua_gc(state, LUA_GCSTEP, kilobytes);
    }
}

}  // namespace DOVA::console
