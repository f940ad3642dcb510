#pragma once

#include "host/Export.h"

namespace vnonline::util {

/// Whether the program runs in the block-diagram tool's online environment, where the web backend
/// stays silent; false until the program says otherwise. Call it on the main thread.
DOVA_HOST_EXPORT bool isVantrolOnline() noexcept;

}  // namespace vnonline::util

namespace host {

/// Sets the answer of `vnonline::util::isVantrolOnline`. Main thread.
DOVA_HOST_EXPORT void setVantrolOnline(bool isOnline) noexcept;

}  // namespace host
