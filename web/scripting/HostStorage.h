#pragma once

#include <cstdlib>
#include <new>
#include <utility>

#include "host/foundation/bad_alloc.h"

namespace DOVA::web {

/// A description as the host wants to be given one: it ends it with its destructor and `std::free`.
template <class Description, class... Arguments>
Description* makeForHost(Arguments&&... arguments) {
    void* storage = std::calloc(sizeof(Description), 1);
    if (!storage) {
        foundation::throwBadAlloc();
    }
    return new (storage) Description(std::forward<Arguments>(arguments)...);
}

}  // namespace DOVA::web
