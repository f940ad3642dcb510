#include "model/ComboBox.h"

#include "ElementName.h"

namespace tdom {

const Base::Impl::Type ComboBox::Impl::s_type{ElementName::comboBox, &Element::Impl::s_type};

void ComboBox::Impl::visitProperties(const PropertyVisitor& visitor) const {
    Element::Impl::visitProperties(visitor);
    visitEach(visitor, m_text, m_placeholder, m_editable, m_currentindex);
    visitor(PropertyName::entries, m_items.whole());
}

}  // namespace tdom
