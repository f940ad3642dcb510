#pragma once

#include "core/WebExport.h"

namespace DOVA::web {

/// Whether the host runs in its browser-hosted environment. The first time that this turns true in
/// a process, the library subscribes the root channel and asks pages to announce themselves;
/// before that it hears nobody. Main thread.
class DOVA_WEB_EXPORT KorvidOnlineFlag {
public:
    /// The flag; asks the host on first use. A host that cannot answer counts as offline.
    static bool get();
    /// Sets the flag; returns what it was before.
    static bool set(bool online);
    /// Turns the flag off; the next get() asks the host again. The subscription stays.
    static void reset();
    /// Sets the flag without asking the host; a get() that is the first one still asks.
    static void setFlagValue(bool online);

private:
    static bool m_isInitialized;
    static bool m_isKorvidOnline;
};

}  // namespace DOVA::web
