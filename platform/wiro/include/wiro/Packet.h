#pragma once

namespace WIRO {

class Payload;

/// A payload on its way to the connections of one emitter. Does not own the payload, which must
/// live until sendPacket returns.
class Packet {
public:
    explicit Packet(Payload& payload) : m_payload(payload) {}

    Payload& payload() const { return m_payload; }

private:
    Payload& m_payload;
};

/// How a packet travels. Here both are delivered on the calling thread before sendPacket returns;
/// a signal library that also queues makes a difference.
enum class SendMode { Ordinary = 0, Synchronous = 1 };

}  // namespace WIRO
