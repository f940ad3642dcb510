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
/// form a tree, in which they are known by their full names, with dots: "dova.web".
///
/// Pointers to namespaces and to what they list hold until generation() changes. What a description
/// throws while members are listed passes through, whoever asked; then none are listed, and the
/// next who asks has them listed anew. Main thread.
class DOVA_HOST_EXPORT COSNamespace final : public COSInterface {
public:
    /// Adds a namespace at the top, or inside `outer`, and takes the description over. A name that
    /// is there already keeps the namespace that it has, which is given back; the new description
    /// is freed. Null gives null.
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

    /// Frees the namespace, if its description allows it, with those inside, whether theirs do or
    /// not. Classes live on as long as instances of theirs do, and until then the library stays
    /// loaded that a class is in, if its namespace is freed before that is unloaded.
    void cleanUp(COSClient* client) override;

    InternedString getName() const { return m_name; }
    InternedString getFullName() const { return m_fullName; }
    const COSNamespaceInfo& getInfo() const { return *m_info; }

    /// The inner namespace of that name; null when there is none.
    COSInterface* getInnerNamespace(InternedString name);
    /// The function or class of that name; null when there is none. The function lives as long as
    /// the namespace.
    const OverloadSet* getFunction(InternedString name);
    ClassPointer getClassInside(InternedString name);

    /// Everything, in the order in which it was added. References hold until something is added.
    std::vector<COSNamespace*> getInnerNamespaces();
    const std::vector<factory::RiboMethod>& getFunctions();
    const std::vector<ClassPointer>& getClasses();

    /// For the description's listMembers and attemptToLoad operations. Adds a function, under its
    /// own name and beside others of that name.
    void addFunction(factory::RiboMethod function);
    /// Adds a class and takes its description over, which must have come from `std::malloc` or
    /// `std::calloc`. A name that is there already keeps its class; the new description is freed.
    /// Null adds nothing.
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
