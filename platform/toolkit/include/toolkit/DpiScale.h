#pragma once

#include "toolkit/Export.h"

namespace DOVA {

/// Display pixels for each toolkit pixel; 1.0 unless set. Any thread.
DOVA_TOOLKIT_EXPORT double dpiScale();
/// Sets what dpiScale() gives. A value that is not positive or not finite is ignored. Any thread.
DOVA_TOOLKIT_EXPORT void setDpiScale(double scale);

}  // namespace DOVA
