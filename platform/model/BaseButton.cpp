#include "model/BaseButton.h"

#include "ElementName.h"
#include "model/PropertyName.h"

namespace tdom {

const Base::Impl::Type BaseButton::Impl::s_type{ElementName::baseButton, &Element::Impl::s_type};

void BaseButton::Impl::setLabel(std::u16string_view label) {
    write(m_label, label, PropertyName::label);
}

void BaseButton::Impl::setIcon(std::u16string_view path) {
    write(m_icon, path, PropertyName::icon);
}

void BaseButton::Impl::setCheckable(bool checkable) {
    write(m_checkable, checkable, PropertyName::checkable);
}

void BaseButton::Impl::setChecked(bool checked) {
    write(m_checked, checked, PropertyName::checked);
}

void BaseButton::Impl::visitProperties(const PropertyVisitor& visitor) const {
    Element::Impl::visitProperties(visitor);
    visitor(PropertyName::label, toValue(m_label));
    visitor(PropertyName::icon, toValue(m_icon));
    visitor(PropertyName::checkable, toValue(m_checkable));
    visitor(PropertyName::checked, toValue(m_checked));
}

}  // namespace tdom
