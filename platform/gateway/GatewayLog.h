#pragma once

#include <string>

#include "CloseReason.h"

namespace DOVA::gateway {

/// Diagnostics on standard error, through the logger "gateway". Secrets are never written.

/// A page broke the protocol or a limit and lost its session.
void logFault(const std::string& clientId, const CloseReason& reason);

/// A browser was refused with this status; `asked` is what it wanted to reach, and from where.
void logRefusal(unsigned status, const std::string& reason, const std::string& asked);

/// The operating system refused a connection that a browser wanted.
void logAcceptError(const std::string& message);

}  // namespace DOVA::gateway
