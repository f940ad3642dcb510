#include "model/Element.h"

#include "ElementName.h"

namespace tdom {

const Base::Impl::Type Element::Impl::s_type{ElementName::element, &Base::Impl::s_type};

void Element::Impl::visitProperties(const PropertyVisitor& visitor) const {
    Base::Impl::visitProperties(visitor);
    visitEach(visitor, m_visible, m_enabled, m_tooltip);
}

}  // namespace tdom
