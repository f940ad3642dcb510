#include "FailingAllocation.h"

#include <cstdlib>
#include <limits>
#include <new>

namespace {

constexpr std::size_t s_never = std::numeric_limits<std::size_t>::max();

/// The allocations that still succeed; `s_never` for all of them.
thread_local std::size_t s_remaining = s_never;
thread_local bool s_hasFailed = false;

}  // namespace

void* operator new(std::size_t size) {
    if (s_remaining != s_never && s_remaining-- == 0) {
        s_hasFailed = true;  // the counter has become s_never
        throw std::bad_alloc();
    }
    if (void* storage = std::malloc(size != 0 ? size : 1)) {
        return storage;
    }
    throw std::bad_alloc();
}

void operator delete(void* storage) noexcept {
    std::free(storage);
}

void operator delete(void* storage, std::size_t) noexcept {
    std::free(storage);
}

namespace host::test {

FailingAllocation::FailingAllocation(std::size_t number) {
    s_hasFailed = false;
    s_remaining = number;
}

FailingAllocation::~FailingAllocation() {
    s_remaining = s_never;
}

bool FailingAllocation::hasFailed() const {
    return s_hasFailed;
}

}  // namespace host::test
