#pragma once

namespace DOVA {

/// Shortcuts that a dialog can be asked to act on as if the user had pressed them.
enum class DVDialogAccel { ZoomIn = 0, Accept = 1, Help = 2, ZoomOut = 3, Apply = 4, Close = 5 };

}  // namespace DOVA
