#pragma once

#include "wiro/Export.h"
#include "wiro/ReadWriteLock.h"

namespace WIRO {

/// The one lock that guards every connection. Who constructs a Connection holds it for writing;
/// disconnecting takes it by itself. An emission runs no handler under it. Lives until the process
/// ends.
DOVA_WIRO_EXPORT DOVA::ReadWriteLock& GetGlobalConnectionLock();

}  // namespace WIRO
