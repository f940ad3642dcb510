#pragma once

#include "CloseReason.h"

namespace DOVA::session {

/// The live connection of a session, as the sessions see it.
class PageLink {
public:
    virtual ~PageLink() = default;

    /// Texts wait in the session: send them soon, those of the same loop turn together.
    virtual void textsWait() = 0;

    /// The session is no longer this link's: close with this reason.
    virtual void end(const CloseReason& reason) = 0;
};

}  // namespace DOVA::session
