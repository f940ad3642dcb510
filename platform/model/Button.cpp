#include "model/Button.h"

#include "ElementName.h"
#include "model/PropertyName.h"

namespace tdom {

const Base::Impl::Type Button::Impl::s_type{ElementName::button, &BaseButton::Impl::s_type};

Button Button::create(const pf::zero::Ref<pf::zero::Model>& model, const pf::zero::Uuid& uuid) {
    return createIn<Button>(model, uuid);
}

void Button::Impl::setDefaultbutton(bool isDefault) {
    write(m_defaultbutton, isDefault, PropertyName::defaultbutton);
}

void Button::Impl::visitProperties(const PropertyVisitor& visitor) const {
    BaseButton::Impl::visitProperties(visitor);
    visitor(PropertyName::defaultbutton, toValue(m_defaultbutton));
}

}  // namespace tdom
