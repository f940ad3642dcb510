#pragma once

#include <stdexcept>
#include <string>

#include "console/Export.h"

namespace DOVA::console {

/// A script could not be read, could not be compiled, or failed. `what()` says why; where the fault
/// is in the script, with its place in front: "script.lua:3: text". It has several lines when the
/// script raised such a text.
class DOVA_CONSOLE_EXPORT ScriptError : public std::runtime_error {
public:
    explicit ScriptError(const std::string& message, std::string traceback = {});

    /// The calls that led there: a headline, then a line each, innermost first, without a line end
    /// at the end. Empty for a script that never ran.
    const std::string& traceback() const { return m_traceback; }

private:
    std::string m_traceback;
};

}  // namespace DOVA::console
