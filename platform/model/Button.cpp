#include "model/Button.h"

#include "ElementName.h"

namespace tdom {

const Base::Impl::Type Button::Impl::s_type{ElementName::button, &BaseButton::Impl::s_type};

void Button::Impl::visitProperties(const PropertyVisitor& visitor) const {
    BaseButton::Impl::visitProperties(visitor);
    visitEach(visitor, m_defaultbutton);
}

}  // namespace tdom
