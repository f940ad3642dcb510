#include "TakenOver.h"

#include <utility>

namespace DOVA {

const TakenOver* TakenOver::s_current = nullptr;

TakenOver::TakenOver(std::uint32_t object, std::function<void()> putBack)
    : m_object(object), m_putBack(std::move(putBack)), m_outer(std::exchange(s_current, this)) {}

TakenOver::~TakenOver() {
    s_current = m_outer;
}

void TakenOver::putBack(std::uint32_t object) {
    for (const TakenOver* each = s_current; each; each = each->m_outer) {
        if (each->m_object == object) {
            return each->m_putBack();
        }
    }
}

}  // namespace DOVA
