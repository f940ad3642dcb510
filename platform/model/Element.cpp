#include "model/Element.h"

#include "ElementName.h"
#include "model/PropertyName.h"

namespace tdom {

const Base::Impl::Type Element::Impl::s_type{ElementName::element, &Base::Impl::s_type};

void Element::Impl::setVisible(bool visible) {
    write(m_visible, visible, PropertyName::visible);
}

void Element::Impl::setEnabled(std::optional<bool> enabled) {
    write(m_enabled, enabled, PropertyName::enable);
}

void Element::Impl::setTooltip(std::u16string_view tooltip) {
    write(m_tooltip, tooltip, PropertyName::tooltip);
}

void Element::Impl::visitProperties(const PropertyVisitor& visitor) const {
    Base::Impl::visitProperties(visitor);
    visitor(PropertyName::visible, toValue(m_visible));
    visitor(PropertyName::enable, toValue(m_enabled));
    visitor(PropertyName::tooltip, toValue(m_tooltip));
}

}  // namespace tdom
