#pragma once

#include "host/Export.h"

/// Whether a graphical display is there for the desktop module; false until the program says
/// otherwise. Call it on the main thread.
DOVA_HOST_EXPORT bool svGraphicsHasDisplay() noexcept;

namespace host {

/// Sets what `svGraphicsHasDisplay` answers. The embedded platform has no desktop module and does
/// not ask the environment's DISPLAY: a program that brings such a module calls this before it
/// loads the web module. Main thread.
DOVA_HOST_EXPORT void setHasDisplay(bool hasDisplay) noexcept;

}  // namespace host
