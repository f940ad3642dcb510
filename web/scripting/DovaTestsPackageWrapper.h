#pragma once

#include "LockedNamespace.h"

namespace DOVA::tests::mi {

/// Describes the script namespace "dova.tests", which lists nothing itself.
class DovaTestsPackageWrapper final : public LockedNamespace {
public:
    ribo::InternedString getName() const override;
};

}  // namespace DOVA::tests::mi
