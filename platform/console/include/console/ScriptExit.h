#pragma once

#include "console/Export.h"

namespace DOVA::console {

/// A script asked for the end of the program, with `os.exit`.
struct DOVA_CONSOLE_EXPORT ScriptExit {
    int exitCode;
};

}  // namespace DOVA::console
