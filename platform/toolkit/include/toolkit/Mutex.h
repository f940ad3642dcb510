#pragma once

#include <mutex>

namespace DOVA {

/// A lock that its holder may take again. Works with std::lock_guard.
using Mutex = std::recursive_mutex;

}  // namespace DOVA
