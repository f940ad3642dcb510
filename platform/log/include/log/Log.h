#pragma once

#include <string>

#include "log/Export.h"

/// The one log of a program: lines on standard error.
namespace DOVA::log {

/// How grave a line is, the gravest first.
enum class Level { Error, Warning, Info, Debug };

/// What the levels are called, in their order.
inline constexpr const char* levelNames[] = {"error", "warning", "info", "debug"};

/// Sets the least grave level that is written from now on in the whole process; Warning at first.
/// Any thread.
DOVA_LOG_EXPORT void setLevel(Level level) noexcept;

/// Writes the line "TIME LEVEL WHO: TEXT" when the level is one that is written. `who` is the part
/// of the program that says it; `text` is UTF-8. Its control characters become blanks; of more than
/// 4,000 bytes only the beginning is written, with " ..." after it. Any thread.
///
/// Never waits for a reader: while the pipe, socket or terminal of standard error is full, lines
/// are left out. So are lines beyond 200 at once and 20 a second, so that a page that makes faults
/// fills no disk. A line before the next one tells how many were left out. When the reader is gone
/// the program goes on.
DOVA_LOG_EXPORT void write(Level level, const std::string& who, const std::string& text) noexcept;

}  // namespace DOVA::log
