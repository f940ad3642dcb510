#include "host/ribo/COSNamespaceInfo.h"

namespace ribo {

COSNamespaceInfo::~COSNamespaceInfo() = default;

void COSNamespaceInfo::listMembers(COSNamespace&) const {}

bool COSNamespaceInfo::isDestructible() const {
    return false;
}

bool COSNamespaceInfo::isLocked() const {
    return false;
}

bool COSNamespaceInfo::canLoadDynamicContent() const {
    return true;
}

bool COSNamespaceInfo::attemptToLoadClass(COSNamespace&, InternedString) const {
    return false;
}

bool COSNamespaceInfo::attemptToLoadFunction(COSNamespace&, InternedString) const {
    return false;
}

bool COSNamespaceInfo::attemptToLoadInnerNamespace(COSNamespace&, InternedString) const {
    return false;
}

bool COSNamespaceInfo::attemptToLoadType(COSNamespace&, InternedString) const {
    return false;
}

std::string COSNamespaceInfo::getDescription() const {
    return {};
}

std::string COSNamespaceInfo::getDetailedDescription() const {
    return {};
}

COSMethodSelector* COSNamespaceInfo::getMethodSelector() const {
    return nullptr;
}

}  // namespace ribo
