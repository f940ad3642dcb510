#pragma once

#include <deque>
#include <unordered_map>

#include "host/ribo/OverloadSet.h"
#include "host/ribo/factory/RiboMethod.h"
#include "host/ribo/factory/RiboProperty.h"

namespace ribo {

/// The members of a class, in the order in which they were described and by name.
class DOVA_HOST_EXPORT ClassMembers {
public:
    ClassMembers() = default;
    ClassMembers(const ClassMembers&) = delete;
    ClassMembers& operator=(const ClassMembers&) = delete;

    void addConstructor(factory::RiboMethod constructor);
    void addMethod(factory::RiboMethod method);
    /// findProperty() gives the first one of a name.
    void addProperty(factory::RiboProperty property);

    const OverloadSet& getConstructors() const { return m_constructors; }
    const std::deque<factory::RiboMethod>& getMethods() const { return m_methods; }
    const std::deque<factory::RiboProperty>& getProperties() const { return m_properties; }

    /// Null when there is none of that name.
    const OverloadSet* findMethod(InternedString name) const;
    const factory::RiboProperty* findProperty(InternedString name) const;

private:
    OverloadSet m_constructors;
    std::deque<factory::RiboMethod> m_methods;
    std::deque<factory::RiboProperty> m_properties;
    std::unordered_map<InternedString, OverloadSet> m_methodsByName;
    std::unordered_map<InternedString, const factory::RiboProperty*> m_propertiesByName;
};

}  // namespace ribo
