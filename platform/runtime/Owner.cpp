#include "runtime/Owner.h"

#include <utility>

namespace DOVA::runtime {

Owner::Owner(const DVObject& object) : m_object(&object), m_identifier(object.identifier()) {}

Owner::Owner(std::weak_ptr<const void> shared) : m_shared(std::move(shared)) {}

std::function<void()> Owner::whileAlive(std::function<void()> callable) const {
    return [owner = *this, callable = std::move(callable)] { owner.callIfAlive(callable); };
}

void Owner::callIfAlive(const std::function<void()>& callable) const {
    const auto share = m_shared.lock();
    if (callable && (share || DVObject::isObjectValid(m_object, m_identifier))) {
        callable();
    }
}

}  // namespace DOVA::runtime
