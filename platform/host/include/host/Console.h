#pragma once

#include <functional>
#include <string_view>

#include "host/Export.h"

/// Prints on the host's console what `printf` would. Gives the number of bytes; on a format that
/// fails it gives a negative number and prints nothing. Any thread; the texts of two calls do not
/// mix.
DOVA_HOST_EXPORT int utPrintf(const char* format, ...) __attribute__((format(printf, 1, 2)));

namespace host {

/// Prints a text as it is, zeros included, where `utPrintf` prints. Any thread.
DOVA_HOST_EXPORT void printText(std::string_view text);

/// As printText(), for the `flush` of setConsoleBuffer(): prints what the buffer held, and does not
/// call `flush`.
DOVA_HOST_EXPORT void printBuffered(std::string_view text);

/// For a part of the program that collects texts before it prints them. Each other print calls
/// `flush` first, on its own thread; `flush` prints the buffer, so that all texts keep their order.
/// One for the process, null for none.
DOVA_HOST_EXPORT void setConsoleBuffer(void (*flush)());

/// Ends the line on the console when it has text: what comes next stands in a line of its own. Any
/// thread.
DOVA_HOST_EXPORT void endLine();

/// Receives each printed text, valid during the call only, on the thread that prints. May print.
using ConsoleSink = std::function<void(std::string_view text)>;

/// Sends what is printed from now on to `sink`; an empty one stands for standard output, where it
/// goes at first. Gives the previous sink, empty for standard output. Any thread; a text that
/// another thread is printing meanwhile may still go to the previous one.
DOVA_HOST_EXPORT ConsoleSink redirectConsole(ConsoleSink sink);

}  // namespace host
