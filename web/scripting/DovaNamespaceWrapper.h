#pragma once

#include "../seam/ScriptNamespaces.h"

namespace DOVA::mi {

/// Describes the functions of the script namespace "dova".
class DovaNamespaceWrapper final : public seam::LockedNamespace {
public:
    ribo::InternedString getName() const override;
    void listMembers(ribo::COSNamespace& self) const override;
};

}  // namespace DOVA::mi
