#pragma once

#include <string>

#include "Options.h"

namespace DOVA::console {

/// What standard input is to the program.
class StandardInput {
public:
    /// Whether a user types there, and sees the output.
    static bool isTerminal();
    /// Whether the script comes from there.
    static bool isScript(const Options& options);
    /// Everything, to its end.
    static std::string read();
};

}  // namespace DOVA::console
