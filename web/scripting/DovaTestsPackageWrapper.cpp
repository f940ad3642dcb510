#include "DovaTestsPackageWrapper.h"

namespace DOVA::tests::mi {

ribo::InternedString DovaTestsPackageWrapper::getName() const {
    return ribo::internal::makeInterned("tests");
}

}  // namespace DOVA::tests::mi
