#include "console/ScriptError.h"

#include <utility>

namespace DOVA::console {

ScriptError::ScriptError(const std::string& message, std::string traceback)
    : std::runtime_error(message), m_traceback(std::move(traceback)) {}

}  // namespace DOVA::console
