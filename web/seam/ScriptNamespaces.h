#pragma once

#include <cstdlib>
#include <new>
#include <utility>

#include "host/foundation/bad_alloc.h"
#include "host/ribo/COSNamespaceInfo.h"

namespace DOVA::seam {

/// What the library's namespaces have in common: they go with the module, nobody else adds to them,
/// and they hold what they list.
class LockedNamespace : public ribo::COSNamespaceInfo {
public:
    bool isDestructible() const override { return true; }
    bool isLocked() const override { return true; }
    bool canLoadDynamicContent() const override { return false; }
};

/// A description as the host wants to be given one: it ends it with its destructor and `std::free`.
template <class Description, class... Arguments>
Description* makeForHost(Arguments&&... arguments) {
    void* storage = std::calloc(sizeof(Description), 1);
    if (!storage) {
        foundation::throwBadAlloc();
    }
    return new (storage) Description(std::forward<Arguments>(arguments)...);
}

/// Null if there is none of that name.
ribo::COSNamespace* findNamespace(const char* fullName);
ribo::COSNamespace* findInside(ribo::COSNamespace& outer, const char* name);

/// Takes a namespace away, with what it lists; does nothing without it.
void detachNamespace(const char* fullName);

}  // namespace DOVA::seam
