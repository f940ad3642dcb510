#pragma once

#include "wiro/Export.h"
#include "wiro/ReadWriteLock.h"

namespace WIRO {

/// The one lock that guards every link between an emitter and a listener. Whoever constructs a
/// Connection holds it for writing; disconnecting takes it by itself. No handler ever runs under
/// it. Lives until the process ends.
DOVA_WIRO_EXPORT DOVA::ReadWriteLock& GetGlobalConnectionLock();

}  // namespace WIRO
