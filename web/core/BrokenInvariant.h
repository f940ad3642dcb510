#pragma once

#include <cstdint>

namespace DOVA {

/// Ends the process, in release builds too, with one line on standard error that names the object.
/// For states that the toolkit's order of calls rules out and that no operation can go on from;
/// never for what comes from a client.
[[noreturn]] void stopOnBrokenInvariant(std::uint32_t object, const char* what);

}  // namespace DOVA
