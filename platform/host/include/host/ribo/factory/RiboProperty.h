#pragma once

#include <string>

#include "host/ribo/factory/RiboMethod.h"

namespace ribo::factory {

/// What is special about a property.
struct PropertyAttributes {
    bool isConstant = false;  ///< read on the class: its getter takes no instance
    bool isHidden = false;    ///< scripts neither see nor reach it
};

/// A property of a class.
class DOVA_HOST_EXPORT RiboProperty {
public:
    /// `typeName` is the type of the value. `getter` gets the instance, or nothing when the
    /// property is constant, and gives the value. `setter` gets the instance and the new value; an
    /// empty one makes the property read-only.
    RiboProperty(std::string name, InternedString typeName, PropertyAttributes attributes,
                 RiboMethod::Body getter, RiboMethod::Body setter = {});

    InternedString getName() const { return m_name; }
    const DataType& getType() const { return *m_type; }
    const PropertyAttributes& getAttributes() const { return m_attributes; }
    bool isReadOnly() const { return !m_setter; }

    /// The value. A constant ignores `instance`. REQUIRES otherwise: `instance` is of the class.
    host::ArrayPointer get(const kaArray* instance) const;

    /// Sets the value. Throws host::Error when the property is read-only or the value does not fit
    /// its type. REQUIRES: `instance` is of the class.
    void set(const kaArray* instance, const kaArray* value) const;

private:
    InternedString m_name;
    const DataType* m_type;
    PropertyAttributes m_attributes;
    RiboMethod::Body m_getter;
    RiboMethod::Body m_setter;
};

}  // namespace ribo::factory
