#include "host/ribo/factory/RiboProperty.h"

#include <utility>

#include "host/Error.h"

namespace ribo::factory {

RiboProperty::RiboProperty(std::string name, InternedString typeName, PropertyAttributes attributes,
                           RiboMethod::Body getter, RiboMethod::Body setter)
    : m_name(internal::makeInterned(std::move(name))),
      m_type(&DataType::named(typeName)),
      m_attributes(attributes),
      m_getter(std::move(getter)),
      m_setter(std::move(setter)) {}

host::ArrayPointer RiboProperty::get(const kaArray* instance) const {
    return m_getter({&instance, m_attributes.isConstant ? 0u : 1u});
}

void RiboProperty::set(const kaArray* instance, const kaArray* value) const {
    if (isReadOnly()) {
        throw host::Error("ribo:ReadOnlyProperty",
                          "The property \"" + m_name.text() + "\" can only be read.");
    }
    if (m_type->fit(value) == Fit::None) {
        throw host::Error("ribo:WrongPropertyType", "The property \"" + m_name.text() +
                                                        "\" takes a value of type " +
                                                        m_type->getName().text() + ".");
    }
    const kaArray* const arguments[] = {instance, value};
    m_setter({arguments, 2});
}

}  // namespace ribo::factory
