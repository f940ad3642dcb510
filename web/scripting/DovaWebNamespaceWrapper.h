#pragma once

#include "LockedNamespace.h"

namespace DOVA::web::mi {

/// Describes the functions and classes of the script namespace "dova.web".
class DovaWebNamespaceWrapper final : public LockedNamespace {
public:
    ribo::InternedString getName() const override;
    void listMembers(ribo::COSNamespace& self) const override;
};

}  // namespace DOVA::web::mi
