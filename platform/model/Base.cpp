#include "model/Base.h"

#include "ElementName.h"
#include "model/PropertyName.h"

namespace tdom {

const Base::Impl::Type Base::Impl::s_type{ElementName::base, nullptr};

void Base::Impl::setTag(std::u16string_view tag) {
    write(m_tag, tag, PropertyName::tag);
}

std::u16string Base::Impl::getId() const {
    return m_tag.empty() ? getUuid().toU16String() : m_tag;
}

bool Base::Impl::isA(const Type& type) const noexcept {
    const Type* step = &m_type;
    while (step != nullptr && step != &type) {
        step = step->base;
    }
    return step != nullptr;
}

void Base::Impl::visitProperties(const PropertyVisitor& visitor) const {
    visitor(PropertyName::tag, toValue(m_tag));
}

}  // namespace tdom
