#include "host/foundation/bad_alloc.h"

#include <boost/throw_exception.hpp>

namespace foundation {

bad_alloc::~bad_alloc() = default;

const char* bad_alloc::what() const noexcept {
    return "Out of memory.";
}

void throwBadAlloc() {
    boost::throw_exception(bad_alloc());
}

}  // namespace foundation
