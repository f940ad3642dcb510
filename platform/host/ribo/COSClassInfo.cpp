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

const ClassMembers& COSClassInfo::getMembers() {
    if (!m_members.has_value()) {
        m_members.emplace();
        try {
            describeMembers(*m_members);
        } catch (...) {  // who asks next gets all of them or the next error
            m_members.reset();
            throw;
        }
    }
    return *m_members;
}

}  // namespace ribo
