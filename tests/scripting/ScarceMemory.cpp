#include "ScarceMemory.h"

#include <cstddef>

namespace {

constexpr int s_plenty = -1;
thread_local int s_left = s_plenty;

}  // namespace

// The linker sends the library's calls here.
extern "C" void* __real_calloc(std::size_t count, std::size_t size);
extern "C" void* __wrap_calloc(std::size_t count, std::size_t size) {
    const bool isThere = s_left != 0;
    s_left -= s_left == s_plenty ? 0 : 1;
    return isThere ? __real_calloc(count, size) : nullptr;
}

namespace DOVA::test {

ScarceMemory::ScarceMemory(int successes) {
    s_left = successes;
}

ScarceMemory::~ScarceMemory() {
    s_left = s_plenty;
}

}  // namespace DOVA::test
