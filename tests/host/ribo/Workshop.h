#pragma once

#include "Living.h"
#include "host/ribo/COSNamespace.h"
#include "host/ribo/COSNamespaceInfo.h"

namespace host::test {

/// Describes the namespace "workshop": overloaded functions, a class of values, one of handles.
class Workshop : public ribo::COSNamespaceInfo, private Living<Workshop> {
public:
    using Living<Workshop>::s_count;
    static inline int s_listed = 0;

    ribo::InternedString getName() const override;
    void listMembers(ribo::COSNamespace& self) const override;
    bool isDestructible() const override { return true; }
};

}  // namespace host::test
