#include "host/ribo/COSClassInfo.h"

#include <algorithm>
#include <utility>

namespace ribo {

namespace {

InternedString dotted(std::string qualifiedName) {
    std::replace(qualifiedName.begin(), qualifiedName.end(), ' ', '.');
    return internal::makeInterned(std::move(qualifiedName));
}

}  // namespace

COSClassInfo::COSClassInfo(std::string name, std::string qualifiedName)
    : m_name(internal::makeInterned(std::move(name))),
      m_fullName(dotted(std::move(qualifiedName))) {}

COSClassInfo::~COSClassInfo() = default;

bool COSClassInfo::isHandleClass() const {
    return true;
}

bool COSClassInfo::isSealed() const {
    return false;
}

bool COSClassInfo::isAbstract() const {
    return false;
}

bool COSClassInfo::isHidden() const {
    return false;
}

bool COSClassInfo::isEnumeration() const {
    return false;
}

const ClassMembers& COSClassInfo::getMembers() {
    if (!m_isInitialised) {
        m_isInitialised = true;
        describeMembers(m_members);
    }
    return m_members;
}

}  // namespace ribo
