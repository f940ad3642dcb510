#pragma once

#include <string>

#include "host/ribo/factory/RiboMethod.h"

namespace ribo::factory {

/// What is special about a property.
struct PropertyAttributes {
    bool isConstant = false;  ///< read on the class: its getter takes no instance
    bool isHidden = false;    ///< not shown to scripts, not reachable for them
};

/// A property of a class.
class DOVA_HOST_EXPORT RiboProperty {
public:
    /// The getter takes the instance, if the property is not constant, and gives the value. The
    /// setter takes the instance and the new value; an empty one makes the property read-only.
    RiboProperty(std::string name, InternedString typeName, PropertyAttributes attributes,
                 RiboMethod::Body getter, RiboMethod::Body setter = {});

    InternedString getName() const { return m_name; }
    const DataType& getType() const { return *m_type; }
    const PropertyAttributes& getAttributes() const { return m_attributes; }
    bool isReadOnly() const { return !m_setter; }

    /// The value. `instance` is ignored by a constant; otherwise REQUIRES: it is of the class.
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
