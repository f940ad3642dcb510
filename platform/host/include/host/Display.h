#pragma once

#include "host/Export.h"

/// Whether a graphical display is there for the desktop module; false until the program says
/// otherwise. Call it on the main thread.
DOVA_HOST_EXPORT bool svGraphicsHasDisplay() noexcept;

namespace host {

/// Decides the answer of `svGraphicsHasDisplay`. The embedded platform has no desktop module, so
/// the environment's DISPLAY is not asked: a program that brings such a module says so before it
/// loads the web module. Main thread.
DOVA_HOST_EXPORT void setHasDisplay(bool hasDisplay) noexcept;

}  // namespace host
