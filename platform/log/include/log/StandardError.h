#pragma once

#include <string_view>

#include "log/Export.h"

namespace DOVA::log {

/// Writes a line, without its line end, to standard error. Any thread.
///
/// Never waits: where nobody reads standard error and its pipe, socket or terminal is full, the
/// line is left out, and so are lines beyond 20 a second once 200 came at once, so that a page
/// that makes faults fills no disk. The next line that is written tells how many were left out. A
/// reader that is gone ends nothing. Line ends within the line become blanks; of a line beyond
/// 4,000 bytes only the beginning is written.
DOVA_LOG_EXPORT void writeLine(std::string_view line) noexcept;

}  // namespace DOVA::log
