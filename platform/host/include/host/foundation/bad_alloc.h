#pragma once

#include <new>

#include "host/Export.h"

namespace foundation {

/// The host's own "out of memory".
class DOVA_HOST_EXPORT bad_alloc : public std::bad_alloc {
public:
    ~bad_alloc() override;
    const char* what() const noexcept override;
};

/// Throws it so that it can be cloned and carried to another thread (`boost::exception_detail::
/// clone_base`).
[[noreturn]] DOVA_HOST_EXPORT void throwBadAlloc();

}  // namespace foundation
