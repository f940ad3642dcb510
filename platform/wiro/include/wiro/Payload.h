#pragma once

#include "wiro/Export.h"

namespace WIRO {

class Connection;

/// What a packet carries: something that can deliver itself through a connection.
class DOVA_WIRO_EXPORT Payload {
public:
    virtual ~Payload();
    /// Calls the receiver behind `connection`, which is open and of the emitter's own type.
    virtual void performDeliver(Connection* connection) = 0;
};

/// Which packets may be dropped when deliveries pile up. Here they never do: sendPacket delivers
/// before it returns.
enum class PacketDropMode { Never = 0 };

}  // namespace WIRO
