#pragma once

#include "core/WebExport.h"

namespace DOVA {

/// Prints one line on the host's console that says what a handler threw. To be called where the
/// exception was caught. Any thread.
DOVA_WEB_EXPORT void reportHandlerError() noexcept;

/// Makes a call that reaches handlers of the program. One that throws is over and reported; whoever
/// calls goes on with what else there is to do.
template <class Call>
void callHandlers(Call&& call) {
    try {
        call();
    } catch (...) {
        reportHandlerError();
    }
}

}  // namespace DOVA
