#pragma once

#include <string>

#include "log/Export.h"

/// The one log of a program: lines on standard error.
namespace DOVA::log {

/// How grave a line is, the gravest first.
enum class Level { Error, Warning, Info, Debug };

/// What the levels are called, in their order.
inline constexpr const char* levelNames[] = {"error", "warning", "info", "debug"};

/// Sets the least grave level that is written from now on, in the whole process; Warning at first.
/// Any thread.
DOVA_LOG_EXPORT void setLevel(Level level) noexcept;

/// Writes "TIME LEVEL WHO: TEXT", for WHO the part of the program that says it. Any thread.
///
/// Never waits: where nobody reads standard error and its pipe, socket or terminal is full, the
/// line is left out, and so are lines beyond 20 a second once 200 came at once, so that a page
/// that makes faults fills no disk. The next line that is written tells how many were left out. A
/// reader that is gone ends nothing. Control characters in the text become blanks; of a line beyond
/// 4,000 bytes only the beginning is written.
DOVA_LOG_EXPORT void write(Level level, const std::string& who, const std::string& text) noexcept;

}  // namespace DOVA::log
