#include "ScriptNamespaces.h"

#include "DovaNamespaceWrapper.h"
#include "DovaTestsPackageWrapper.h"
#include "DovaWebNamespaceWrapper.h"
#include "HostStorage.h"
#include "host/ribo/COSNamespace.h"
#include "scripting/TestAPI.h"

namespace DOVA {

namespace {

using ribo::COSNamespace;
using ribo::internal::makeInterned;

// The host knows a namespace's description as one pointer.
static_assert(sizeof(mi::DovaNamespaceWrapper) == 8);
static_assert(sizeof(web::mi::DovaWebNamespaceWrapper) == 8);
static_assert(sizeof(tests::mi::DovaTestsPackageWrapper) == 8);

COSNamespace* findInDova(const char* name) {
    COSNamespace* dova = COSNamespace::getNamespace(makeInterned("dova"));
    return dova ? ribo::cosiToNamespace(dova->getInnerNamespace(makeInterned(name))) : nullptr;
}

/// The namespace of that name in "dova"; null if there is no "dova".
template <class Wrapper>
COSNamespace* getOrMakeInDova(const char* name) {
    COSNamespace* dova = COSNamespace::getNamespace(makeInterned("dova"));
    if (dova && !findInDova(name)) {
        COSNamespace::addNamespace(web::makeForHost<Wrapper>(), *dova);
    }
    return findInDova(name);
}

void detach(const char* fullName) {
    ribo::COSInterface* found = COSNamespace::getNamespaceInterface(makeInterned(fullName));
    if (found) {
        found->cleanUp(COSGetPublicClient());
    }
}

}  // namespace

void addScriptNamespaces() {
    COSNamespace::addNamespace(web::makeForHost<mi::DovaNamespaceWrapper>());
    getOrMakeInDova<web::mi::DovaWebNamespaceWrapper>("web");
}

void detachScriptNamespaces() {
    detach("dova.web");
    detach("dova");
}

ribo::COSNamespace* TestAPI::getTestsPackage() {
    return getOrMakeInDova<tests::mi::DovaTestsPackageWrapper>("tests");
}

}  // namespace DOVA
