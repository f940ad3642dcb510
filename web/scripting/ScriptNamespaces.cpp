#include "ScriptNamespaces.h"

#include "../seam/ScriptNamespaces.h"
#include "DovaNamespaceWrapper.h"
#include "DovaTestsPackageWrapper.h"
#include "DovaWebNamespaceWrapper.h"
#include "host/ribo/COSNamespace.h"
#include "scripting/TestAPI.h"

namespace DOVA {

namespace {

using ribo::COSNamespace;

// The host knows a namespace's description as one pointer.
static_assert(sizeof(mi::DovaNamespaceWrapper) == 8);
static_assert(sizeof(web::mi::DovaWebNamespaceWrapper) == 8);
static_assert(sizeof(tests::mi::DovaTestsPackageWrapper) == 8);

/// The namespace of that name in "dova"; null if there is no "dova".
template <class Wrapper>
COSNamespace* getOrMakeInDova(const char* name) {
    COSNamespace* dova = seam::findNamespace("dova");
    if (!dova) {
        return nullptr;
    }
    if (!seam::findInside(*dova, name)) {
        COSNamespace::addNamespace(seam::makeForHost<Wrapper>(), *dova);
    }
    return seam::findInside(*dova, name);
}

}  // namespace

void addScriptNamespaces() {
    COSNamespace::addNamespace(seam::makeForHost<mi::DovaNamespaceWrapper>());
    getOrMakeInDova<web::mi::DovaWebNamespaceWrapper>("web");
}

void detachScriptNamespaces() {
    seam::detachNamespace("dova.web");
    seam::detachNamespace("dova");
}

ribo::COSNamespace* TestAPI::getTestsPackage() {
    return getOrMakeInDova<tests::mi::DovaTestsPackageWrapper>("tests");
}

}  // namespace DOVA
