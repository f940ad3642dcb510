#include "host/ribo/ClassMembers.h"

#include <utility>

namespace ribo {

void ClassMembers::addConstructor(factory::RiboMethod constructor) {
    m_constructors.add(std::move(constructor));
}

void ClassMembers::addMethod(factory::RiboMethod method) {
    m_methodsByName[method.getName()].add(method);
    m_methods.push_back(std::move(method));
}

void ClassMembers::addProperty(factory::RiboProperty property) {
    m_properties.push_back(std::move(property));
    m_propertiesByName.emplace(m_properties.back().getName(), &m_properties.back());
}

const OverloadSet* ClassMembers::findMethod(InternedString name) const {
    const auto found = m_methodsByName.find(name);
    return found == m_methodsByName.end() ? nullptr : &found->second;
}

const factory::RiboProperty* ClassMembers::findProperty(InternedString name) const {
    const auto found = m_propertiesByName.find(name);
    return found == m_propertiesByName.end() ? nullptr : found->second;
}

}  // namespace ribo
