#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>

#include "host/ribo/ClassMembers.h"
#include "host/ribo/InternedString.h"

namespace ribo {

/// Describes a class of the host's language: how its instances are made, copied and freed, and,
/// once somebody asks, its members. Handed to COSNamespace::addClass, which shares it with the
/// class's instances; the last of them ends it with its destructor and `std::free`, so it must
/// stand at the start of storage that came from `std::malloc` or `std::calloc`.
///
/// Main thread.
class DOVA_HOST_EXPORT COSClassInfo {
public:
    COSClassInfo(const COSClassInfo&) = delete;
    COSClassInfo& operator=(const COSClassInfo&) = delete;
    virtual ~COSClassInfo();

    /// "JSONArray", and with the namespaces before it, "dova.web.JSONArray", which is also the type
    /// name of instances in signatures.
    InternedString getName() const { return m_name; }
    InternedString getFullName() const { return m_fullName; }

    /// Whether a copy of an instance is the instance itself. The base says yes.
    virtual bool isHandleClass() const;
    /// The base says no to each.
    virtual bool isSealed() const;
    virtual bool isAbstract() const;
    virtual bool isHidden() const;
    virtual bool isEnumeration() const;

    /// A new instance; each one is ended with deallocateInstance.
    virtual void* allocateInstance() const = 0;
    /// A copy of an instance.
    virtual void* copyInstance(const void* instance) const = 0;
    virtual void deallocateInstance(void* instance) const noexcept = 0;

    /// About how many bytes of memory go with an instance, beside those of the texts that it was
    /// made of; quick to know. The base says none. The embedded platform's own.
    virtual std::size_t weighInstance(const void* instance) const noexcept;

    /// The members, which the class describes when they are first asked for. They live as long as
    /// this description.
    const ClassMembers& getMembers();

protected:
    /// `qualifiedName` has blanks between its parts: "dova web JSONArray".
    COSClassInfo(std::string name, std::string qualifiedName);

    /// Fills in the members, which are empty; called once, and again only after it threw.
    virtual void describeMembers(ClassMembers& members) = 0;

private:
    const InternedString m_name;
    const InternedString m_fullName;
    std::optional<ClassMembers> m_members;  // none until somebody asks
};

/// A class that somebody uses: its namespace, its instances.
using ClassPointer = std::shared_ptr<COSClassInfo>;

}  // namespace ribo
