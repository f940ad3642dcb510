#pragma once

#include <functional>
#include <string_view>

#include "host/Export.h"

/// Prints on the host's console, as `printf` formats it. Gives the number of bytes, or a negative
/// number when the format cannot be carried out; then nothing is printed. Any thread; the texts of
/// two calls do not mix.
DOVA_HOST_EXPORT int utPrintf(const char* format, ...) __attribute__((format(printf, 1, 2)));

namespace host {

/// Prints a text as it is, zeros included, where `utPrintf` prints. Any thread.
DOVA_HOST_EXPORT void printText(std::string_view text);

/// The same for a buffer that holds texts back for the console, see below: prints what was in it.
DOVA_HOST_EXPORT void printBuffered(std::string_view text);

/// Has `flush` called before anything else is printed, on the thread that prints; it empties the
/// buffer of whoever holds texts back, so that all texts keep their order. One for the process,
/// null for none.
DOVA_HOST_EXPORT void setConsoleBuffer(void (*flush)());

/// Ends the line that was begun on the console, if there is one: what comes next stands in a line
/// of its own. Any thread.
DOVA_HOST_EXPORT void endLine();

/// Receives each printed text, which is valid during the call only. May itself print.
using ConsoleSink = std::function<void(std::string_view text)>;

/// Sends what is printed from now on to `sink`; an empty one means standard output again, which is
/// where it goes at first. Gives the previous sink, empty for standard output. Any thread; a text
/// that another thread is just printing may still go the old way.
DOVA_HOST_EXPORT ConsoleSink redirectConsole(ConsoleSink sink);

}  // namespace host
