#pragma once

#include "../seam/ScriptNamespaces.h"

namespace DOVA::web::mi {

/// Describes the functions and classes of the script namespace "dova.web".
class DovaWebNamespaceWrapper final : public seam::LockedNamespace {
public:
    ribo::InternedString getName() const override;
    void listMembers(ribo::COSNamespace& self) const override;
};

}  // namespace DOVA::web::mi
