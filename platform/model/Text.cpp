#include "model/Text.h"

#include "ElementName.h"

namespace tdom {

const Base::Impl::Type Text::Impl::s_type{ElementName::text, &Element::Impl::s_type};

void Text::Impl::visitProperties(const PropertyVisitor& visitor) const {
    Element::Impl::visitProperties(visitor);
    visitEach(visitor, m_text);
}

}  // namespace tdom
