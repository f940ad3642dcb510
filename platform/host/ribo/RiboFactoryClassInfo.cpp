#include "host/ribo/factory/RiboFactoryClassInfo.h"

namespace ribo::factory {

RiboFactoryClassInfo::RiboFactoryClassInfo() : COSClassInfo({}, {}) {}

RiboFactoryClassInfo::~RiboFactoryClassInfo() = default;

void RiboFactoryClassInfo::describeMembers(ClassMembers& members) {
    m_members = &members;
    describe();
    m_members = nullptr;
}

}  // namespace ribo::factory
