#include "model/Base.h"

#include "ElementName.h"

namespace tdom {

const Base::Impl::Type Base::Impl::s_type{ElementName::base, nullptr};

std::u16string Base::Impl::getId() const {
    return getTag().empty() ? getUuid().toU16String() : getTag();
}

bool Base::Impl::isA(const Type& type) const noexcept {
    const Type* step = &m_type;
    while (step != nullptr && step != &type) {
        step = step->base;
    }
    return step != nullptr;
}

void Base::Impl::visitProperties(const PropertyVisitor& visitor) const {
    visitEach(visitor, m_tag);
}

}  // namespace tdom
