#pragma once

#include "host/ribo/COSNamespaceInfo.h"

namespace DOVA {

/// What the library's namespaces have in common: they go with the module, nobody else adds to them,
/// and they hold what they list.
class LockedNamespace : public ribo::COSNamespaceInfo {
public:
    bool isDestructible() const override { return true; }
    bool isLocked() const override { return true; }
    bool canLoadDynamicContent() const override { return false; }
};

}  // namespace DOVA
