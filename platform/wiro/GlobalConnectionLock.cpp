#include "wiro/GlobalConnectionLock.h"

namespace WIRO {

DOVA::ReadWriteLock& GetGlobalConnectionLock() {
    // Never destroyed: listeners with static lifetime disconnect while the process ends.
    static auto* lock = new DOVA::ReadWriteLock;
    return *lock;
}

}  // namespace WIRO
