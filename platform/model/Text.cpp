#include "model/Text.h"

#include "ElementName.h"
#include "model/PropertyName.h"

namespace tdom {

const Base::Impl::Type Text::Impl::s_type{ElementName::text, &Element::Impl::s_type};

Text Text::create(const pf::zero::Ref<pf::zero::Model>& model, const pf::zero::Uuid& uuid) {
    return createIn<Text>(model, uuid);
}

void Text::Impl::setText(std::u16string_view text) {
    write(m_text, text, PropertyName::text);
}

void Text::Impl::visitProperties(const PropertyVisitor& visitor) const {
    Element::Impl::visitProperties(visitor);
    visitor(PropertyName::text, toValue(m_text));
}

}  // namespace tdom
