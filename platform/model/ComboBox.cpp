#include "model/ComboBox.h"

#include "ElementName.h"

namespace tdom {

const Base::Impl::Type ComboBox::Impl::s_type{ElementName::comboBox, &Element::Impl::s_type};

ComboBox ComboBox::create(const pf::zero::Ref<pf::zero::Model>& model, const pf::zero::Uuid& uuid) {
    return createIn<ComboBox>(model, uuid);
}

void ComboBox::Impl::setCurrentindex(std::int32_t index) {
    write(m_currentindex, index, PropertyName::currentindex);
}

void ComboBox::Impl::setText(std::u16string_view text) {
    write(m_text, text, PropertyName::text);
}

void ComboBox::Impl::setPlaceholder(std::u16string_view placeholder) {
    write(m_placeholder, placeholder, PropertyName::placeholder);
}

void ComboBox::Impl::setEditable(bool editable) {
    write(m_editable, editable, PropertyName::editable);
}

void ComboBox::Impl::visitProperties(const PropertyVisitor& visitor) const {
    Element::Impl::visitProperties(visitor);
    visitor(PropertyName::text, toValue(m_text));
    visitor(PropertyName::placeholder, toValue(m_placeholder));
    visitor(PropertyName::editable, toValue(m_editable));
    visitor(PropertyName::currentindex, toValue(m_currentindex));
    visitor(PropertyName::entries, m_items.whole());
}

}  // namespace tdom
