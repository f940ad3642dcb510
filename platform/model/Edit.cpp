#include "model/Edit.h"

#include "ElementName.h"

namespace tdom {

const Base::Impl::Type Edit::Impl::s_type{ElementName::edit, &Element::Impl::s_type};

void Edit::Impl::visitProperties(const PropertyVisitor& visitor) const {
    Element::Impl::visitProperties(visitor);
    visitEach(visitor, m_text, m_placeholder);
}

}  // namespace tdom
