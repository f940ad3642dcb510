#pragma once

#include <new>

#include "host/Export.h"

namespace foundation {

/// The host's own exception for "out of memory".
class DOVA_HOST_EXPORT bad_alloc : public std::bad_alloc {
public:
    ~bad_alloc() override;
    const char* what() const noexcept override;
};

/// Throws a bad_alloc that can be copied to another thread (`boost::exception_detail::clone_base`).
[[noreturn]] DOVA_HOST_EXPORT void throwBadAlloc();

}  // namespace foundation
