#include "BrokenInvariant.h"

#include <cinttypes>
#include <cstdio>
#include <cstdlib>

namespace DOVA {

void stopOnBrokenInvariant(std::uint32_t object, const char* what) {
    std::fprintf(stderr, "dova2_web: object %" PRIu32 ": %s\n", object, what);
    std::abort();
}

}  // namespace DOVA
