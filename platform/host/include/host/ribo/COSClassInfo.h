#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>

#include "host/ribo/ClassMembers.h"
#include "host/ribo/InternedString.h"

namespace ribo {

/// Describes a class of the host's language: how its instances are made, copied and freed, and its
/// members. COSNamespace::addClass takes it over; the namespace and the class's instances share it.
/// The last of them destroys it and frees its storage with `std::free`: so it must stand at the
/// start of storage from `std::malloc` or `std::calloc`. Main thread.
class DOVA_HOST_EXPORT COSClassInfo {
public:
    COSClassInfo(const COSClassInfo&) = delete;
    COSClassInfo& operator=(const COSClassInfo&) = delete;
    virtual ~COSClassInfo();

    /// The name, "JSONArray", and the one with the namespaces before it, "dova.web.JSONArray". In
    /// signatures the full name is the type of the instances.
    InternedString getName() const { return m_name; }
    InternedString getFullName() const { return m_fullName; }

    /// Whether a copy of an instance is the instance itself. The base says yes.
    virtual bool isHandleClass() const { return true; }
    /// The base says no to each.
    virtual bool isSealed() const { return false; }
    virtual bool isAbstract() const { return false; }
    virtual bool isHidden() const { return false; }

    /// A new instance; deallocateInstance() frees it, and what copyInstance() gives.
    virtual void* allocateInstance() const = 0;
    /// A copy of an instance.
    virtual void* copyInstance(const void* instance) const = 0;
    virtual void deallocateInstance(void* instance) const noexcept = 0;

    /// About how many bytes an instance keeps beside the texts that it was made of; must be quick.
    /// The base gives 0. The embedded platform's own.
    virtual std::size_t weighInstance(const void*) const noexcept { return 0; }

    /// The members. The first call has the class describe them; what that throws passes through,
    /// and the next call tries again. They live as long as this description.
    const ClassMembers& getMembers();

protected:
    /// `qualifiedName` has blanks between its parts: "dova web JSONArray".
    COSClassInfo(std::string name, std::string qualifiedName);

    /// Fills `members`, which is empty.
    virtual void describeMembers(ClassMembers& members) = 0;

private:
    const InternedString m_name;
    const InternedString m_fullName;
    std::optional<ClassMembers> m_members;  // none until somebody asks
};

/// A class that somebody uses: its namespace, its instances.
using ClassPointer = std::shared_ptr<COSClassInfo>;

}  // namespace ribo
