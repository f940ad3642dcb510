#pragma once

namespace DOVA::web {

/// How JSON is written. Every value but Compact counts as Indented.
enum class JSONFormat : int {
    Indented = 0,  ///< four blanks a level, a line break at the end
    Compact = 1,   ///< no blanks, no line breaks
};

}  // namespace DOVA::web
