#pragma once

#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

#include "host/ribo/COSClassInfo.h"
#include "host/ribo/COSInterface.h"
#include "host/ribo/InternedString.h"
#include "host/ribo/OverloadSet.h"

namespace ribo {

class COSNamespaceInfo;

/// A namespace of the host's language: functions, classes and inner namespaces by name. Namespaces
/// form a tree; full names have dots: "dova.web". Main thread.
///
/// Pointers to namespaces and to what they list are valid until generation() changes. The first
/// question for a member has the description list them all. What it throws then passes through;
/// none are listed, and the next question tries again.
class DOVA_HOST_EXPORT COSNamespace final : public COSInterface {
public:
    /// Adds a namespace at the top, or inside `outer`, and takes the description over. When there
    /// is one of that name already, gives that one and frees the new description. Null gives null.
    static COSNamespace* addNamespace(COSNamespaceInfo* info);
    static COSNamespace* addNamespace(COSNamespaceInfo* info, COSNamespace& outer);

    /// The namespace of a full name; null when there is none.
    static COSNamespace* getNamespace(InternedString fullName);
    static COSInterface* getNamespaceInterface(InternedString fullName);

    /// The namespaces at the top, in the order in which they came.
    static std::vector<COSNamespace*> getTopNamespaces();

    /// The class of a full name, "dova.web.JSONArray"; null when there is none.
    static ClassPointer getClass(InternedString fullName);

    /// Changes whenever a namespace comes or goes, in the whole tree.
    static std::uint64_t generation() noexcept;

    ~COSNamespace() override;

    /// Frees the namespace if its description allows it, with all namespaces inside. A class lives
    /// on with its instances, and keeps the library loaded that its code is in; for that the
    /// namespace must be freed before the library is unloaded.
    void cleanUp(COSClient* client) override;

    InternedString getName() const { return m_name; }
    InternedString getFullName() const { return m_fullName; }
    const COSNamespaceInfo& getInfo() const { return *m_info; }

    /// The inner namespace of that name; null when there is none.
    COSInterface* getInnerNamespace(InternedString name);
    /// The functions of that name, which live as long as the namespace; the class of that name.
    /// Null when there is none.
    const OverloadSet* getFunction(InternedString name);
    ClassPointer getClassInside(InternedString name);

    /// All of them, in the order in which they were added. References are valid until the next one
    /// is added.
    std::vector<COSNamespace*> getInnerNamespaces();
    const std::vector<factory::RiboMethod>& getFunctions();
    const std::vector<ClassPointer>& getClasses();

    /// For the description's listMembers and attemptToLoad operations. Adds a function under its
    /// name, as one more overload where there are others.
    void addFunction(factory::RiboMethod function);
    /// For the same operations. Adds a class and takes its description over. When there is one of
    /// that name already, it stays, and the new description is freed. Null adds nothing.
    void addClass(COSClassInfo* info);

private:
    struct InfoDeleter {
        void operator()(COSNamespaceInfo* info) const noexcept;
    };
    using InfoPointer = std::unique_ptr<COSNamespaceInfo, InfoDeleter>;
    using Children = std::vector<std::unique_ptr<COSNamespace>>;

    COSNamespace(InfoPointer info, COSNamespace* outer);
    static Children& topNamespaces();
    static COSNamespace* add(COSNamespaceInfo* info, COSNamespace* outer);
    static COSNamespace* find(const Children& children, InternedString name);
    void listMembersOnce();
    void forgetMembers();
    template <class Find, class Load>
    auto findOrLoad(const Find& find, const Load& load);

    const InfoPointer m_info;
    COSNamespace* const m_outer;
    const InternedString m_name;
    const InternedString m_fullName;
    Children m_inner;
    std::vector<factory::RiboMethod> m_functions;
    std::unordered_map<InternedString, OverloadSet> m_functionsByName;
    std::vector<ClassPointer> m_classes;
    bool m_listed = false;
};

}  // namespace ribo
