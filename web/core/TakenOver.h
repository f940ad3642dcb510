#pragma once

#include <cstdint>
#include <functional>

namespace DOVA {

/// What a web object has taken over from the client's message that it is handling, until the
/// handling ends. A front object that does not let the event through has it put back: see
/// WebFactory2.
class TakenOver {
public:
    /// `putBack` brings the object's former state back and sends it; called while this lives.
    TakenOver(std::uint32_t object, std::function<void()> putBack);
    ~TakenOver();
    TakenOver(const TakenOver&) = delete;
    TakenOver& operator=(const TakenOver&) = delete;

    /// Puts back what the object's latest message has changed; nothing if none is being handled.
    static void putBack(std::uint32_t object);

private:
    const std::uint32_t m_object;
    const std::function<void()> m_putBack;
    const TakenOver* const m_outer;  // a handler may have further messages delivered

    static const TakenOver* s_current;
};

}  // namespace DOVA
