#include "model/BaseButton.h"

#include "ElementName.h"

namespace tdom {

const Base::Impl::Type BaseButton::Impl::s_type{ElementName::baseButton, &Element::Impl::s_type};

void BaseButton::Impl::visitProperties(const PropertyVisitor& visitor) const {
    Element::Impl::visitProperties(visitor);
    visitEach(visitor, m_label, m_icon, m_checkable, m_checked);
}

}  // namespace tdom
