#include "DovaNamespaceWrapper.h"

#include "host/Console.h"
#include "host/ribo/COSNamespace.h"
#include "host/ribo/factory/Adapters.h"

namespace DOVA::mi {

using ribo::factory::makeMethod;

ribo::InternedString DovaNamespaceWrapper::getName() const {
    return ribo::internal::makeInterned("dova");
}

void DovaNamespaceWrapper::listMembers(ribo::COSNamespace& self) const {
    self.addFunction(makeMethod("init", {}, [] { utPrintf("Initializing dova module.\n"); }));
}

}  // namespace DOVA::mi
