#pragma once

#include "../seam/ScriptNamespaces.h"

namespace DOVA::tests::mi {

/// Describes the script namespace "dova.tests", which lists nothing itself.
class DovaTestsPackageWrapper final : public seam::LockedNamespace {
public:
    ribo::InternedString getName() const override;
};

}  // namespace DOVA::tests::mi
