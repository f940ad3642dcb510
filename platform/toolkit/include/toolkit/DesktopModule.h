#pragma once

#include "toolkit/Export.h"

/// Start of the desktop module of the toolkit: registers the bridge "qt". The embedded one has no
/// desktop behind it. Main thread.
extern "C" DOVA_TOOLKIT_EXPORT void initialize_dova2_qt();
/// End of the desktop module: takes the bridge "qt" out again. Main thread.
extern "C" DOVA_TOOLKIT_EXPORT void terminate_dova2_qt();
