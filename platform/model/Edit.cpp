#include "model/Edit.h"

#include "ElementName.h"
#include "model/PropertyName.h"

namespace tdom {

const Base::Impl::Type Edit::Impl::s_type{ElementName::edit, &Element::Impl::s_type};

Edit Edit::create(const pf::zero::Ref<pf::zero::Model>& model, const pf::zero::Uuid& uuid) {
    return createIn<Edit>(model, uuid);
}

void Edit::Impl::setText(std::u16string_view text) {
    write(m_text, text, PropertyName::text);
}

void Edit::Impl::setPlaceholder(std::u16string_view placeholder) {
    write(m_placeholder, placeholder, PropertyName::placeholder);
}

void Edit::Impl::visitProperties(const PropertyVisitor& visitor) const {
    Element::Impl::visitProperties(visitor);
    visitor(PropertyName::text, toValue(m_text));
    visitor(PropertyName::placeholder, toValue(m_placeholder));
}

}  // namespace tdom
