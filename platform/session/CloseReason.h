#pragma once

#include <cstdint>

namespace DOVA::session {

/// Why a page's WebSocket is closed: the close code of RFC 6455 section 7.4 and the text beside
/// it. Codes from 4000 on are this protocol's own.
struct CloseReason {
    std::uint16_t code;
    const char* text;
};

}  // namespace DOVA::session
