#include "LineBudget.h"

#include <algorithm>

namespace DOVA::log {

bool LineBudget::take(Clock::time_point now) {
    const std::chrono::duration<double> passed = now - m_last;
    m_room = std::min(burst, m_room + passed.count() * perSecond);
    m_last = now;
    const bool hasRoom = m_room >= 1;
    m_room -= hasRoom ? 1 : 0;
    return hasRoom;
}

}  // namespace DOVA::log
