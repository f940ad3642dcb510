#pragma once

#include "core/WebExport.h"

namespace DOVA {

/// Prints one line on the host's console that says what a handler threw. Call it where the
/// exception was caught. Any thread.
DOVA_WEB_EXPORT void reportHandlerError() noexcept;

/// Runs `call`, which reaches handlers of the program. What it throws is reported and goes no
/// further.
template <class Call>
void callHandlers(Call&& call) {
    try {
        call();
    } catch (...) {
        reportHandlerError();
    }
}

}  // namespace DOVA
