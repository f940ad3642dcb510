#pragma once

#include <string>

#include "host/ribo/InternedString.h"

namespace ribo {

class COSNamespace;
class COSMethodSelector;

/// Describes a namespace. COSNamespace::addNamespace takes it over, destroys it and frees its
/// storage with `std::free`: so it must stand at the start of storage from `std::malloc` or
/// `std::calloc`. Main thread.
class DOVA_HOST_EXPORT COSNamespaceInfo {
public:
    COSNamespaceInfo() = default;
    COSNamespaceInfo(const COSNamespaceInfo&) = delete;
    COSNamespaceInfo& operator=(const COSNamespaceInfo&) = delete;
    virtual ~COSNamespaceInfo();

    /// The last part of the namespace's name: "web".
    virtual InternedString getName() const = 0;

    /// Adds functions and classes to the namespace. Called when somebody first asks for a member,
    /// and again only after it threw. The base adds none.
    virtual void listMembers(COSNamespace&) const {}

    /// Whether COSNamespace::cleanUp may free the namespace. The base says no.
    virtual bool isDestructible() const { return false; }
    /// Whether nobody but its own module may add to the namespace. The base says no; nobody asks
    /// here.
    virtual bool isLocked() const { return false; }
    /// Whether the operations below are called for a member that is not listed. The base says yes.
    virtual bool canLoadDynamicContent() const { return true; }

    /// Adds the member of that name to the namespace; gives true when it did. The base gives false.
    /// Nobody asks for a type here.
    virtual bool attemptToLoadClass(COSNamespace&, InternedString) const { return false; }
    virtual bool attemptToLoadFunction(COSNamespace&, InternedString) const { return false; }
    virtual bool attemptToLoadInnerNamespace(COSNamespace&, InternedString) const { return false; }
    virtual bool attemptToLoadType(COSNamespace&, InternedString) const { return false; }

    /// One line for the user, and several; the base gives empty texts.
    virtual std::string getDescription() const { return {}; }
    virtual std::string getDetailedDescription() const { return {}; }

    /// Who chooses among overloads in place of the system; the base gives null, for nobody. Nobody
    /// asks here.
    virtual COSMethodSelector* getMethodSelector() const { return nullptr; }
};

}  // namespace ribo
