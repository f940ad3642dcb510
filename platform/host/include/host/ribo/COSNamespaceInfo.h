#pragma once

#include <string>

#include "host/ribo/InternedString.h"

namespace ribo {

class COSNamespace;
class COSMethodSelector;

/// Describes a namespace. Handed to COSNamespace::addNamespace, which owns it from then on and ends
/// it with its destructor and `std::free`: so it must stand at the start of storage that came from
/// `std::malloc` or `std::calloc`.
///
/// Main thread.
class DOVA_HOST_EXPORT COSNamespaceInfo {
public:
    COSNamespaceInfo() = default;
    COSNamespaceInfo(const COSNamespaceInfo&) = delete;
    COSNamespaceInfo& operator=(const COSNamespaceInfo&) = delete;
    virtual ~COSNamespaceInfo();

    /// The last part of the namespace's name: "web".
    virtual InternedString getName() const = 0;

    /// Adds functions and classes to the namespace, when somebody first asks for a member. The base
    /// adds none.
    virtual void listMembers(COSNamespace& self) const;

    /// Whether clean-up may take the namespace away. The base says no.
    virtual bool isDestructible() const;
    /// Whether nobody but its own module may add to the namespace. The base says no.
    virtual bool isLocked() const;
    /// Whether a member that is not listed may be looked for with the operations below. The base
    /// says yes.
    virtual bool canLoadDynamicContent() const;

    /// Adds the named member to the namespace, if it can. True when it did. The base cannot.
    virtual bool attemptToLoadClass(COSNamespace& self, InternedString name) const;
    virtual bool attemptToLoadFunction(COSNamespace& self, InternedString name) const;
    virtual bool attemptToLoadInnerNamespace(COSNamespace& self, InternedString name) const;
    virtual bool attemptToLoadType(COSNamespace& self, InternedString name) const;

    /// One line, and more than one, for the user; the base gives empty texts.
    virtual std::string getDescription() const;
    virtual std::string getDetailedDescription() const;

    /// Who chooses among overloads in place of the system; null, as in the base, for nobody.
    virtual COSMethodSelector* getMethodSelector() const;
};

}  // namespace ribo
