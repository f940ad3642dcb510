#include "ScriptNamespaces.h"

#include "host/ribo/COSNamespace.h"

namespace DOVA::seam {

using ribo::COSNamespace;
using ribo::internal::makeInterned;

COSNamespace* findNamespace(const char* fullName) {
    return COSNamespace::getNamespace(makeInterned(fullName));
}

COSNamespace* findInside(COSNamespace& outer, const char* name) {
    return ribo::cosiToNamespace(outer.getInnerNamespace(makeInterned(name)));
}

void detachNamespace(const char* fullName) {
    if (ribo::COSInterface* found = COSNamespace::getNamespaceInterface(makeInterned(fullName))) {
        found->cleanUp(COSGetPublicClient());
    }
}

}  // namespace DOVA::seam
